#include "platform/local/trace_services.h"

#include "base/utf8.h"

namespace keyscout {

StringView nameOf(TraceCall::Kind kind) {
  switch (kind) {
    case TraceCall::Kind::enterProcedure: return u"enterProcedure";
    case TraceCall::Kind::exitProcedure: return u"exitProcedure";
    case TraceCall::Kind::reportError: return u"reportError";
    case TraceCall::Kind::traceMessage: return u"traceMessage";
    case TraceCall::Kind::logMessage: return u"logMessage";
  }
  return {};
}

std::string lineOf(const TraceCall& call) {
  std::string line =
      toUtf8(nameOf(call.kind)) + ' ' + toUtf8(call.className) + '.' + toUtf8(call.procName);
  if (call.kind == TraceCall::Kind::reportError)
    line += ": " + std::to_string(call.errorNumber) + " (" + toUtf8(call.errorSource) + ')';
  if (!call.text.empty()) line += ": " + toUtf8(call.text);
  return line;
}

void RecordingTrace::enterProcedure(StringView className, StringView procName,
                                    std::int32_t traceLevel) {
  record({TraceCall::Kind::enterProcedure,
          String{className},
          String{procName},
          {},
          {},
          0,
          traceLevel});
}

void RecordingTrace::exitProcedure(StringView className, StringView procName,
                                   std::int32_t traceLevel) {
  record(
      {TraceCall::Kind::exitProcedure, String{className}, String{procName}, {}, {}, 0, traceLevel});
}

void RecordingTrace::reportError(StringView className, StringView procName, const Error& error,
                                 std::int32_t line) {
  record({TraceCall::Kind::reportError, String{className}, String{procName}, error.description(),
          error.source(), error.number(), line});
}

void RecordingTrace::traceMessage(StringView className, StringView procName, StringView text,
                                  std::int32_t traceLevel) {
  record({TraceCall::Kind::traceMessage,
          String{className},
          String{procName},
          String{text},
          {},
          0,
          traceLevel});
}

void RecordingTrace::logMessage(StringView className, StringView procName, StringView text,
                                std::int32_t traceLevel) {
  record({TraceCall::Kind::logMessage,
          String{className},
          String{procName},
          String{text},
          {},
          0,
          traceLevel});
}

void StreamTrace::record(TraceCall call) { stream_ << lineOf(call) << '\n'; }

}  // namespace keyscout
