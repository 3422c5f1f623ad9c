#pragma once

#include <cstdint>
#include <type_traits>
#include <utility>

#include "base/error.h"
#include "platform/object_library.h"

namespace keyscout {

/// How one operation is named in the trace.
struct Procedure {
  StringView className;
  StringView name;         // in the reports of entry and exit
  StringView failureName;  // in the report of a failure
  std::int32_t traceLevel = 0;
};

/// Reports to the calling thread's trace service, which the object library makes at its first use.
class Tracer {
 public:
  explicit Tracer(ObjectLibrary& library) : library_(library) {}

  void enter(const Procedure& procedure);
  void exit(const Procedure& procedure);
  void message(const Procedure& procedure, StringView text);
  void log(const Procedure& procedure, StringView text);

  /// Belongs into failure handlers and therefore never fails: what is being reported must not be
  /// replaced by a failure to report it.
  void report(const Procedure& procedure, const Error& error) noexcept;

  /// Runs `body` between the reports of entry and exit. Any failure in the three goes to
  /// `onFailure` as an `Error`, whose result then stands for the body's.
  template <class Body, class OnFailure>
  auto traced(const Procedure& procedure, Body&& body, OnFailure&& onFailure) {
    return guarded(
        [&] {
          enter(procedure);
          if constexpr (std::is_void_v<decltype(body())>) {
            body();
            exit(procedure);
          } else {
            auto result = body();
            exit(procedure);
            return result;
          }
        },
        onFailure);
  }

  /// Runs `body`, which makes its own reports. A failure goes to `onFailure` as an `Error`.
  template <class Body, class OnFailure>
  static auto guarded(Body&& body, OnFailure&& onFailure) -> decltype(body()) {
    try {
      return body();
    } catch (...) {
      return onFailure(currentError());
    }
  }

 private:
  TraceService& service();

  ObjectLibrary& library_;
};

/// Runs one step whose failure changes nothing for the steps after it.
template <class Step>
void ignoringFailure(Step&& step) noexcept {
  try {
    step();
  } catch (...) {  // NOLINT(bugprone-empty-catch): ignoring it is the purpose
  }
}

}  // namespace keyscout
