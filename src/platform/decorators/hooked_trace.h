#pragma once

#include <memory>
#include <utility>

#include "platform/decorators/call_hook.h"
#include "platform/trace_service.h"

namespace keyscout {

/// A trace service whose calls go by a hook, under the names of its operations.
class HookedTrace final : public TraceService {
 public:
  HookedTrace(std::shared_ptr<TraceService> trace, CallHook& hook)
      : trace_(std::move(trace)), hook_(hook) {}

  void enterProcedure(StringView className, StringView procName, std::int32_t level) override {
    hook_.onCall("enterProcedure");
    trace_->enterProcedure(className, procName, level);
  }
  void exitProcedure(StringView className, StringView procName, std::int32_t level) override {
    hook_.onCall("exitProcedure");
    trace_->exitProcedure(className, procName, level);
  }
  void reportError(StringView className, StringView procName, const Error& error,
                   std::int32_t line) override {
    hook_.onCall("reportError");
    trace_->reportError(className, procName, error, line);
  }
  void traceMessage(StringView className, StringView procName, StringView text,
                    std::int32_t level) override {
    hook_.onCall("traceMessage");
    trace_->traceMessage(className, procName, text, level);
  }
  void logMessage(StringView className, StringView procName, StringView text,
                  std::int32_t level) override {
    hook_.onCall("logMessage");
    trace_->logMessage(className, procName, text, level);
  }

 private:
  std::shared_ptr<TraceService> trace_;
  CallHook& hook_;
};

}  // namespace keyscout
