// The window of a text box: what it answers to messages.

#include <windowsx.h>

#include <optional>
#include <utility>

#include "platform/win32/accessible.h"
#include "platform/win32/input.h"
#include "platform/win32/parameters.h"
#include "platform/win32/win32_text_box.h"

namespace keyscout {

LRESULT Win32TextBox::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  site_.messageArrives(message);
  switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN: return onKeyDown(message, wParam, lParam);
    case WM_CHAR:
    case WM_SYSCHAR:
    case WM_DEADCHAR: return onCharacter(message, wParam, lParam);
    case WM_KEYUP:
    case WM_SYSKEYUP: return onKeyUp(message, wParam, lParam);
    case WM_NCCALCSIZE: {
      const LRESULT result = original(message, wParam, lParam);
      // Both of what the parameter may point to begin with the rectangle.
      narrowToLine(*pointerIn<RECT*>(lParam));
      return result;
    }
    case WM_NCPAINT: {
      const LRESULT result = original(message, wParam, lParam);
      fillAroundLine();
      return result;
    }
    case WM_NCHITTEST: return hitTest(wParam, lParam);
    case WM_GETOBJECT: {
      const auto answer =
          answerForTextBox({wParam, lParam}, window(), site_.accessibleName(), site_.listWindow());
      if (answer) return *answer;
      break;
    }
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

// An edit window draws its line at the top of its inside, so the inside is as high as the line and
// stands in the middle of the box; what is above and below belongs to the border.

void Win32TextBox::narrowToLine(RECT& inside) const {
  constexpr int leftByEditWindow = 1;  // above and below the line
  const int spare = inside.bottom - inside.top - site_.look().lineHeight() - 2 * leftByEditWindow;
  if (spare <= 0) return;
  inside.top += spare / 2;
  inside.bottom -= spare - spare / 2;
}

void Win32TextBox::fillAroundLine() {
  const RECT box = withinBorder();
  RECT inside{};
  GetClientRect(window(), &inside);
  POINT corner{};
  ClientToScreen(window(), &corner);
  RECT whole{};
  GetWindowRect(window(), &whole);
  OffsetRect(&inside, corner.x - whole.left, corner.y - whole.top);
  const WholeWindowContext target{window()};
  ExcludeClipRect(target, inside.left, inside.top, inside.right, inside.bottom);
  const Brush brush{CreateSolidBrush(shownBackColor())};
  FillRect(target, &box, brush.get());
}

LRESULT Win32TextBox::hitTest(WPARAM wParam, LPARAM lParam) {
  const LRESULT answer = original(WM_NCHITTEST, wParam, lParam);
  RECT whole{};
  GetWindowRect(window(), &whole);
  const POINT at{GET_X_LPARAM(lParam) - whole.left, GET_Y_LPARAM(lParam) - whole.top};
  const RECT box = withinBorder();
  return PtInRect(&box, at) ? HTCLIENT : answer;
}

/// The box without its border, in the pixels of the whole window.
RECT Win32TextBox::withinBorder() const {
  RECT whole{};
  GetWindowRect(window(), &whole);
  OffsetRect(&whole, -whole.left, -whole.top);
  InflateRect(&whole, -GetSystemMetrics(SM_CXEDGE), -GetSystemMetrics(SM_CYEDGE));
  return whole;
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

void Win32TextBox::takeCharacter(WPARAM character, LPARAM keyData) {
  character_ = Character::take;
  onCharacter(WM_CHAR, character, keyData);
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
