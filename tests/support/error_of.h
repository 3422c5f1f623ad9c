#pragma once

#include <cstdint>

#include "base/error.h"

namespace keyscout::test {

/// The number of the error that `action` fails with, 0 where it does not.
template <class Action>
std::int32_t errorOf(Action&& action) {
  try {
    action();
    return 0;
  } catch (const Error& error) {
    return error.number();
  }
}

}  // namespace keyscout::test
