#pragma once

#include "base/error.h"

namespace keyscout {

/// Runs `body`. A failure goes to `onFailure` as an `Error`, whose result then stands for the
/// body's.
template <class Body, class OnFailure>
auto handlingFailure(Body&& body, OnFailure&& onFailure) -> decltype(body()) {
  try {
    return body();
  } catch (...) {
    return onFailure(currentError());
  }
}

/// Runs one step whose failure changes nothing for the steps after it.
template <class Step>
void ignoringFailure(Step&& step) noexcept {
  try {
    step();
  } catch (...) {  // NOLINT(bugprone-empty-catch): ignoring it is the purpose
  }
}

}  // namespace keyscout
