#pragma once

#include <windows.h>

#include <cstdint>

namespace keyscout {

/// The shift keys that are down with the input being worked on, as `Modifier`s.
std::int16_t modifierMask();

/// Whether `message` is one of a mouse over a window, and what it says in the units of reports.
struct MouseInput {
  enum class Kind { none, down, move, up, doubleClick };

  Kind kind = Kind::none;
  std::int16_t button = 0;  // 1 left, 2 right, 4 middle; while moving the sum of those held
  POINT at{};
};
MouseInput mouseInput(UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace keyscout
