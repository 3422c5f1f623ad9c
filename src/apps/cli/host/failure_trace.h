#pragma once

#include <string>
#include <utility>

#include "base/utf8.h"
#include "platform/trace_service.h"

namespace keyscout {

/// A trace that keeps the last failure only: the one thing that a host without a log has to say
/// about an operation that did not succeed.
class FailureTrace final : public TraceService {
 public:
  void enterProcedure(StringView, StringView, std::int32_t) override {}
  void exitProcedure(StringView, StringView, std::int32_t) override {}
  void reportError(StringView, StringView, const Error& error, std::int32_t) override {
    failure_ = error.what();
  }
  void traceMessage(StringView, StringView, StringView, std::int32_t) override {}
  void logMessage(StringView, StringView, StringView text, std::int32_t) override {
    log_ = toUtf8(text);
  }

  /// What failed last, as a line of text; empty where nothing did. Forgets it.
  std::string take() {
    const std::string failure = std::exchange(failure_, {});
    const std::string log = std::exchange(log_, {});
    return log.empty() ? failure : log;
  }

 private:
  std::string failure_;
  std::string log_;
};

}  // namespace keyscout
