// The window of a text box: what it answers to messages.

#include <optional>
#include <utility>

#include "platform/win32/input.h"
#include "platform/win32/parameters.h"
#include "platform/win32/win32_text_box.h"

namespace keyscout {

LRESULT Win32TextBox::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN: return onKeyDown(message, wParam, lParam);
    case WM_CHAR:
    case WM_SYSCHAR:
    case WM_DEADCHAR: return onCharacter(message, wParam, lParam);
    case WM_KEYUP:
    case WM_SYSKEYUP: return onKeyUp(message, wParam, lParam);
    case WM_GETDLGCODE: return site_.dialogCode(lParam);
    case WM_MOUSEWHEEL:
      if (site_.scrollList(wParam, lParam)) return 0;
      break;
    case WM_SETFOCUS: {
      const LRESULT result = original(message, wParam, lParam);
      site_.focusCame(FocusPlace::textBox);
      return result;
    }
    case WM_KILLFOCUS: {
      const LRESULT result = original(message, wParam, lParam);
      site_.focusGoes(pointerIn<HWND>(wParam));
      return result;
    }
    default: break;
  }
  const LRESULT result = original(message, wParam, lParam);
  reportMouse(message, wParam, lParam);
  return result;
}

LRESULT Win32TextBox::onKeyDown(UINT message, WPARAM wParam, LPARAM lParam) {
  auto keyCode = static_cast<std::int16_t>(wParam);
  std::int16_t shift = modifierMask();
  const bool hadFocus = GetFocus() == window();
  report([&](TextBoxObserver& observer) { observer.keyDown(keyCode, shift); });
  const bool movedFocus = hadFocus && GetFocus() != window();
  const bool hasOtherCode = keyCode != static_cast<std::int16_t>(wParam);
  // The character that the key was translated to is on its way to this window already.
  const bool drops = keyCode == 0 || (hasOtherCode && wParam == VK_BACK);
  character_ = drops ? Character::drop : movedFocus ? Character::handOn : Character::take;
  if (keyCode == 0) return 0;
  std::optional<HeldModifiers> held;
  if (shift != modifierMask()) held.emplace(shift);
  const LRESULT result = original(message, static_cast<std::uint16_t>(keyCode), lParam);
  // An edit window erases at the character of Backspace, not at its key.
  if (hasOtherCode && keyCode == KeyCodes::backspace) original(WM_CHAR, VK_BACK, lParam);
  return result;
}

LRESULT Win32TextBox::onCharacter(UINT message, WPARAM wParam, LPARAM lParam) {
  if (character_ == Character::drop) return 0;
  if (character_ == Character::handOn) return SendMessageW(GetFocus(), message, wParam, lParam);
  if (message != WM_CHAR) return original(message, wParam, lParam);
  auto character = static_cast<std::int16_t>(wParam);
  report([&](TextBoxObserver& observer) { observer.keyPress(character); });
  if (character == 0) return 0;
  return original(message, static_cast<std::uint16_t>(character), lParam);
}

LRESULT Win32TextBox::onKeyUp(UINT message, WPARAM wParam, LPARAM lParam) {
  character_ = Character::take;
  auto keyCode = static_cast<std::int16_t>(wParam);
  std::int16_t shift = modifierMask();
  report([&](TextBoxObserver& observer) { observer.keyUp(keyCode, shift); });
  if (keyCode == 0) return 0;
  return original(message, static_cast<std::uint16_t>(keyCode), lParam);
}

void Win32TextBox::reportMouse(UINT message, WPARAM wParam, LPARAM lParam) {
  MouseInput input = mouseInput(message, wParam, lParam);
  if (input.kind == MouseInput::Kind::none) return;
  std::int16_t shift = modifierMask();
  auto x = static_cast<float>(input.at.x);
  auto y = static_cast<float>(input.at.y);
  switch (input.kind) {
    case MouseInput::Kind::move:
      return report([&](TextBoxObserver& to) { to.mouseMoved(input.button, shift, x, y); });
    case MouseInput::Kind::down:
      pressed_ = message == WM_LBUTTONDOWN;
      return report([&](TextBoxObserver& to) { to.mouseDown(input.button, shift, x, y); });
    case MouseInput::Kind::doubleClick:
      pressed_ = false;  // its release is no click of its own
      return report([&](TextBoxObserver& to) { to.doubleClicked(); });
    case MouseInput::Kind::up: {
      report([&](TextBoxObserver& to) { to.mouseUp(input.button, shift, x, y); });
      RECT area{};
      GetClientRect(window(), &area);
      const bool wasPressed = std::exchange(pressed_, false);
      const bool isClick = wasPressed && message == WM_LBUTTONUP && PtInRect(&area, input.at);
      if (isClick) report([](TextBoxObserver& to) { to.clicked(); });
      return;
    }
    case MouseInput::Kind::none: return;
  }
}

}  // namespace keyscout
