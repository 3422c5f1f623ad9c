#pragma once

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "platform/trace_service.h"

namespace keyscout {

class SilentTrace final : public TraceService {
 public:
  void enterProcedure(StringView, StringView, std::int32_t) override {}
  void exitProcedure(StringView, StringView, std::int32_t) override {}
  void reportError(StringView, StringView, const Error&, std::int32_t) override {}
  void traceMessage(StringView, StringView, StringView, std::int32_t) override {}
  void logMessage(StringView, StringView, StringView, std::int32_t) override {}
};

/// One call to a trace service.
struct TraceCall {
  enum class Kind { enterProcedure, exitProcedure, reportError, traceMessage, logMessage };

  Kind kind;
  String className;
  String procName;
  String text;         // the message, or the error's description
  String errorSource;  // of an error only
  std::int32_t errorNumber = 0;
  std::int32_t levelOrLine = 0;  // the trace level, or the line of an error
};

/// The name of the operation that was called.
StringView nameOf(TraceCall::Kind kind);

/// The call as a line of UTF-8, without its end.
std::string lineOf(const TraceCall& call);

/// Passes every call on as one value.
class RecordingTrace : public TraceService {
 public:
  void enterProcedure(StringView className, StringView procName, std::int32_t traceLevel) override;
  void exitProcedure(StringView className, StringView procName, std::int32_t traceLevel) override;
  void reportError(StringView className, StringView procName, const Error& error,
                   std::int32_t line) override;
  void traceMessage(StringView className, StringView procName, StringView text,
                    std::int32_t traceLevel) override;
  void logMessage(StringView className, StringView procName, StringView text,
                  std::int32_t traceLevel) override;

 protected:
  virtual void record(TraceCall call) = 0;
};

/// Collects the calls until they are taken.
class CollectingTrace final : public RecordingTrace {
 public:
  const std::vector<TraceCall>& calls() const { return calls_; }
  std::vector<TraceCall> take() { return std::exchange(calls_, {}); }

 private:
  void record(TraceCall call) override { calls_.push_back(std::move(call)); }

  std::vector<TraceCall> calls_;
};

/// Writes each call as a line of UTF-8 to a stream, which must outlive it.
class StreamTrace final : public RecordingTrace {
 public:
  explicit StreamTrace(std::ostream& stream) : stream_(stream) {}

 private:
  void record(TraceCall call) override;

  std::ostream& stream_;
};

}  // namespace keyscout
