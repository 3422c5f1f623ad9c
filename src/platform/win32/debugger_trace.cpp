#include "platform/win32/debugger_trace.h"

#include <sstream>

#include "platform/local/trace_services.h"
#include "platform/utf8.h"
#include "platform/win32/wide.h"

namespace keyscout {
namespace {

template <class Call>
void whileDebugged(Call&& call) {
  if (!IsDebuggerPresent()) return;
  std::ostringstream line;
  StreamTrace trace{line};
  call(trace);
  OutputDebugStringW(toWide(fromUtf8(line.str())).c_str());
}

}  // namespace

void DebuggerTrace::enterProcedure(StringView className, StringView procName, std::int32_t level) {
  whileDebugged([&](TraceService& trace) { trace.enterProcedure(className, procName, level); });
}

void DebuggerTrace::exitProcedure(StringView className, StringView procName, std::int32_t level) {
  whileDebugged([&](TraceService& trace) { trace.exitProcedure(className, procName, level); });
}

void DebuggerTrace::reportError(StringView className, StringView procName, const Error& error,
                                std::int32_t line) {
  whileDebugged([&](TraceService& trace) { trace.reportError(className, procName, error, line); });
}

void DebuggerTrace::traceMessage(StringView className, StringView procName, StringView text,
                                 std::int32_t level) {
  whileDebugged([&](TraceService& trace) { trace.traceMessage(className, procName, text, level); });
}

void DebuggerTrace::logMessage(StringView className, StringView procName, StringView text,
                               std::int32_t level) {
  whileDebugged([&](TraceService& trace) { trace.logMessage(className, procName, text, level); });
}

}  // namespace keyscout
