#pragma once

#include <windows.h>

#include <array>
#include <cstdint>

namespace keyscout {

/// The shift keys that are down with the input being worked on, as `Modifier`s.
std::int16_t modifierMask();

/// While it lives, the shift keys of `mask` and no others are down, as the thread's windows see it.
class HeldModifiers {
 public:
  explicit HeldModifiers(std::int16_t mask);
  ~HeldModifiers();
  HeldModifiers(const HeldModifiers&) = delete;
  HeldModifiers& operator=(const HeldModifiers&) = delete;

 private:
  std::array<BYTE, 256> before_{};
};

/// Whether `message` tells of something that a person does to the window that it comes to: a key, a
/// character, the mouse, or a command that changes the text.
bool isInput(UINT message);

/// Whether `message` is one of a mouse over a window, and what it says in the units of reports.
struct MouseInput {
  enum class Kind { none, down, move, up, doubleClick };

  Kind kind = Kind::none;
  std::int16_t button = 0;  // 1 left, 2 right, 4 middle; while moving the sum of those held
  POINT at{};
};
MouseInput mouseInput(UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace keyscout
