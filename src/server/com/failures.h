#pragma once

#include <windows.h>

#include "base/error.h"

namespace keyscout {

/// Leaves a COM method with a result that says all there is to say.
struct ComFailure {
  HRESULT result;
};

inline void require(HRESULT result) {
  if (FAILED(result)) throw ComFailure{result};
}

/// The target of an argument by reference; fails where the host gave none.
template <class T>
T& target(T* argument) {
  if (!argument) throw ComFailure{E_POINTER};
  return *argument;
}

/// The exception being handled as a COM method returns it. What an `Error` says besides its number
/// is left for the caller as the thread's error information, as a failure of `interfaceId`.
HRESULT currentFailure(REFIID interfaceId) noexcept;

/// What `body` ends with, as a COM method of `interfaceId` returns it: no exception leaves it.
template <class Body>
[[nodiscard]] HRESULT asComResult(REFIID interfaceId, Body&& body) noexcept {
  try {
    body();
    return S_OK;
  } catch (...) {
    return currentFailure(interfaceId);
  }
}

}  // namespace keyscout
