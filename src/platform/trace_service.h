#pragma once

#include <cstdint>

#include "base/error.h"
#include "base/text.h"

namespace keyscout {

/// Where the component tells what it does. A call that fails counts as a failure of the procedure
/// that made it.
class TraceService {
 public:
  virtual ~TraceService() = default;

  virtual void enterProcedure(StringView className, StringView procName,
                              std::int32_t traceLevel) = 0;
  virtual void exitProcedure(StringView className, StringView procName,
                             std::int32_t traceLevel) = 0;
  /// `line` is the failing line's number, 0 where there is none.
  virtual void reportError(StringView className, StringView procName, const Error& error,
                           std::int32_t line) = 0;
  virtual void traceMessage(StringView className, StringView procName, StringView text,
                            std::int32_t traceLevel) = 0;
  virtual void logMessage(StringView className, StringView procName, StringView text,
                          std::int32_t traceLevel) = 0;
};

}  // namespace keyscout
