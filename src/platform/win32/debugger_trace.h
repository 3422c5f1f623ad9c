#pragma once

#include "platform/trace_service.h"

namespace keyscout {

/// Writes a line for each call to the debugger, and nothing while none is attached.
class DebuggerTrace final : public TraceService {
 public:
  void enterProcedure(StringView className, StringView procName, std::int32_t traceLevel) override;
  void exitProcedure(StringView className, StringView procName, std::int32_t traceLevel) override;
  void reportError(StringView className, StringView procName, const Error& error,
                   std::int32_t line) override;
  void traceMessage(StringView className, StringView procName, StringView text,
                    std::int32_t traceLevel) override;
  void logMessage(StringView className, StringView procName, StringView text,
                  std::int32_t traceLevel) override;
};

}  // namespace keyscout
