// The windows of a drop-down list: what they answer to messages.

#include <windowsx.h>

#include <utility>

#include "platform/win32/accessible.h"
#include "platform/win32/input.h"
#include "platform/win32/parameters.h"
#include "platform/win32/win32_list.h"

namespace keyscout {
namespace {

/// The press of a button that `message` tells of, a quick second one included; 0 for others.
UINT pressOf(UINT message) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: return WM_LBUTTONDOWN;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK: return WM_RBUTTONDOWN;
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK: return WM_MBUTTONDOWN;
    default: return 0;
  }
}

}  // namespace

void Win32List::onNotification(WORD code) {
  switch (code) {
    case CBN_SELENDOK: choosing_ = isDropped(); break;  // a closed list's keys choose nothing
    case CBN_SELENDCANCEL: choosing_ = false; break;
    case CBN_SELCHANGE: {
      const auto now = static_cast<std::int16_t>(send(CB_GETCURSEL));
      // A key that changes nothing is no click; a click on what is selected already is one.
      const bool isClick = std::exchange(selected_, now) != now || choosing_;
      tellSelection();
      choosing_ = false;
      if (isClick) report([](DropDownListObserver& to) { to.clicked(); });
      break;
    }
    case CBN_DROPDOWN: site_.listOpens(); break;
    case CBN_CLOSEUP:
      site_.listCloses();
      if (closingByCode_ == 0 && !choosing_) site_.listClosedByUser();
      break;
    case CBN_EDITCHANGE: report([](DropDownListObserver& to) { to.editChanged(); }); break;
    default: break;
  }
}

LRESULT Win32List::onComboMessage(Part& part, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_GETOBJECT)
    if (const auto answer = answerForPart({wParam, lParam}, part.window(), site_.accessibleName()))
      return *answer;
  return part.original(message, wParam, lParam);
}

LRESULT Win32List::onEditMessage(Part& part, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN: return onKeyDown(message, wParam, lParam);
    case WM_CHAR:
    case WM_SYSCHAR: {
      if (swallowCharacter_) return 0;
      const LRESULT result = part.original(message, wParam, lParam);
      restoreSelection();  // a combo box selects what its own text begins
      if (message == WM_CHAR) onTyped(wParam, lParam);
      return result;
    }
    case WM_KEYUP:
    case WM_SYSKEYUP: {
      auto keyCode = static_cast<std::int16_t>(wParam);
      std::int16_t shift = modifierMask();
      report([&](DropDownListObserver& to) { to.keyUp(keyCode, shift); });
      break;
    }
    case WM_GETOBJECT:
      if (const auto answer =
              answerForPart({wParam, lParam}, part.window(), site_.accessibleName()))
        return *answer;
      break;
    case WM_GETDLGCODE: return site_.dialogCode(lParam);
    case WM_MOUSEWHEEL:
      // A closed list must not move its selection unseen.
      site_.scrollList(wParam, lParam);
      return 0;
    case WM_SETFOCUS: {
      const LRESULT result = part.original(message, wParam, lParam);
      site_.focusCame(FocusPlace::list);
      return result;
    }
    case WM_KILLFOCUS: {
      const LRESULT result = part.original(message, wParam, lParam);
      site_.focusGoes(pointerIn<HWND>(wParam));
      return result;
    }
    default: break;
  }
  return part.original(message, wParam, lParam);
}

/// The edit part is out of sight, so typing goes back to the text box, also where it changes
/// nothing here, as Backspace in an edit part that is empty.
void Win32List::onTyped(WPARAM character, LPARAM keyData) {
  const bool isText = character >= L' ' || character == VK_BACK;
  if (isText && hasFocus()) report([](DropDownListObserver& to) { to.editChanged(); });
  site_.characterCameToList(character, keyData);
}

LRESULT Win32List::onKeyDown(UINT message, WPARAM wParam, LPARAM lParam) {
  // The key starts from the entry that is selected, not from the one under the mouse pointer.
  restoreSelection();
  auto keyCode = static_cast<std::int16_t>(wParam);
  std::int16_t shift = modifierMask();
  report([&](DropDownListObserver& to) { to.keyDown(keyCode, shift); });
  // What is left for the combo box to do with a key is to move its selection or to close. A key
  // that took the focus elsewhere has done its work, and Enter only closes what it accepts from.
  // Only lookups open a list: Alt with an arrow would open the one that it has just closed. Alt
  // with F4 is the form's.
  const bool isArrow = keyCode == KeyCodes::down || keyCode == KeyCodes::up;
  const bool opens = message == WM_SYSKEYDOWN ? isArrow : keyCode == VK_F4 && !isDropped();
  const bool isDone =
      keyCode == 0 || keyCode == KeyCodes::enter || opens || GetFocus() != edit_.window();
  swallowCharacter_ = isDone;
  if (isDone) return 0;
  return edit_.original(message, static_cast<std::uint16_t>(keyCode), lParam);
}

/// An open list has the mouse to itself, and closes on a press beside it. Where that was meant for
/// a text box of ours, the text box gets it as well.
LRESULT Win32List::onPress(Part& part, UINT message, WPARAM wParam, LPARAM lParam) {
  POINT at{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  ClientToScreen(part.window(), &at);
  const HWND under = WindowFromPoint(at);
  const bool isBeside = under != part.window();
  const LRESULT result = part.original(message, wParam, lParam);
  // The system looks at the left button alone.
  if (isBeside && isDropped()) closeForUser();
  if (!isBeside || !Subclass::isAttached(under)) return result;
  ScreenToClient(under, &at);
  SendMessageW(under, pressOf(message), wParam, MAKELPARAM(at.x, at.y));
  return result;
}

void Win32List::closeForUser() {
  {
    const ByCode guard{*this};
    send(CB_SHOWDROPDOWN, FALSE);
  }
  restoreSelection();
  site_.listClosedByUser();
}

LRESULT Win32List::onDropDownMessage(Part& part, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_GETOBJECT)
    if (const auto answer = answerForList({wParam, lParam}, part.window(), site_.accessibleName()))
      return *answer;
  // A scroll bar that comes or goes on the left moves what is drawn already.
  if (message == WM_SIZE) InvalidateRect(part.window(), nullptr, TRUE);
  if (pressOf(message)) return onPress(part, message, wParam, lParam);
  if (message != WM_MOUSEMOVE) return part.original(message, wParam, lParam);
  SetCursor(LoadCursorW(nullptr, IDC_ARROW));
  // A list that opens below a pointer at rest is told of a move, too.
  POINT pointer{};
  GetCursorPos(&pointer);
  const bool moved = pointer.x != pointer_.x || pointer.y != pointer_.y;
  pointer_ = pointer;
  return moved ? part.original(message, wParam, lParam) : 0;
}

}  // namespace keyscout
