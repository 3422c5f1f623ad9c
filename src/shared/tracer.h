#pragma once

#include <type_traits>

#include "base/failure_handling.h"
#include "platform/object_library.h"
#include "shared/procedure.h"

namespace keyscout {

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
    return handlingFailure([&] { return enteredAndLeft(procedure, body); }, onFailure);
  }

  /// The same for an operation whose failures are for its caller: they are reported and passed on.
  template <class Body>
  auto traced(const Procedure& procedure, Body&& body) {
    return reportingFailure(procedure, [&] { return enteredAndLeft(procedure, body); });
  }

  /// Runs `body`, which reports its entry and exits itself. A failure is reported and passed on to
  /// the caller as an `Error`.
  template <class Body>
  auto reportingFailure(const Procedure& procedure, Body&& body) {
    try {
      return body();
    } catch (...) {
      const Error error = currentError();
      report(procedure, error);
      throw Error{error};
    }
  }

 private:
  template <class Body>
  auto enteredAndLeft(const Procedure& procedure, Body&& body) {
    enter(procedure);
    if constexpr (std::is_void_v<decltype(body())>) {
      body();
      exit(procedure);
    } else {
      auto result = body();
      exit(procedure);
      return result;
    }
  }

  TraceService& service();

  ObjectLibrary& library_;
};

}  // namespace keyscout
