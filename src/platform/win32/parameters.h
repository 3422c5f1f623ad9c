#pragma once

#include <windows.h>

#include <bit>

namespace keyscout {

// Messages and windows carry pointers and handles as numbers of the same size.

/// The pointer or handle that `number` carries: a message's parameter, its answer, or a long of a
/// window.
template <class Pointer>
Pointer pointerIn(auto number) {
  return std::bit_cast<Pointer>(number);
}

/// A pointer to an object or a function, or a handle, as such a number.
template <class Number = LPARAM>
Number asParameter(auto* pointer) {
  return std::bit_cast<Number>(pointer);
}

}  // namespace keyscout
