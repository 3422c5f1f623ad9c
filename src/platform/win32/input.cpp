#include "platform/win32/input.h"

#include <windowsx.h>

#include "platform/widgets.h"

namespace keyscout {
namespace {

constexpr std::int16_t leftButton = 1;
constexpr std::int16_t rightButton = 2;
constexpr std::int16_t middleButton = 4;

std::int16_t heldButtons(WPARAM wParam) {
  int sum = 0;
  if (wParam & MK_LBUTTON) sum += leftButton;
  if (wParam & MK_RBUTTON) sum += rightButton;
  if (wParam & MK_MBUTTON) sum += middleButton;
  return static_cast<std::int16_t>(sum);
}

}  // namespace

std::int16_t modifierMask() {
  const auto mask = [](int key, std::int16_t modifier) {
    return GetKeyState(key) < 0 ? modifier : std::int16_t{0};
  };
  return static_cast<std::int16_t>(mask(VK_SHIFT, Modifier::shift) +
                                   mask(VK_CONTROL, Modifier::ctrl) + mask(VK_MENU, Modifier::alt));
}

HeldModifiers::HeldModifiers(std::int16_t mask) {
  GetKeyboardState(before_.data());
  std::array<BYTE, 256> keys = before_;
  const auto hold = [&](std::size_t key, std::int16_t modifier) {
    keys[key] = (mask & modifier) ? 0x80 : 0;
  };
  hold(VK_SHIFT, Modifier::shift);
  hold(VK_CONTROL, Modifier::ctrl);
  hold(VK_MENU, Modifier::alt);
  SetKeyboardState(keys.data());
}

HeldModifiers::~HeldModifiers() { SetKeyboardState(before_.data()); }

bool isInput(UINT message) {
  switch (message) {
    case WM_PASTE:
    case WM_CUT:
    case WM_CLEAR:
    case WM_UNDO:
    case EM_UNDO:
    case EM_REPLACESEL: return true;
    default:
      return (message >= WM_KEYFIRST && message <= WM_KEYLAST) ||
             (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST);
  }
}

MouseInput mouseInput(UINT message, WPARAM wParam, LPARAM lParam) {
  using Kind = MouseInput::Kind;
  const POINT at{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  switch (message) {
    case WM_MOUSEMOVE: return {Kind::move, heldButtons(wParam), at};
    case WM_LBUTTONDOWN: return {Kind::down, leftButton, at};
    // Only the left button has a double click of its own.
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK: return {Kind::down, rightButton, at};
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK: return {Kind::down, middleButton, at};
    case WM_LBUTTONUP: return {Kind::up, leftButton, at};
    case WM_RBUTTONUP: return {Kind::up, rightButton, at};
    case WM_MBUTTONUP: return {Kind::up, middleButton, at};
    case WM_LBUTTONDBLCLK: return {Kind::doubleClick, leftButton, at};
    default: return {};
  }
}

}  // namespace keyscout
