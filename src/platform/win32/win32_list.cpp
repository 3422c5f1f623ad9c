#include "platform/win32/win32_list.h"

#include <windowsx.h>

#include <algorithm>
#include <bit>
#include <utility>

#include "platform/error.h"
#include "platform/win32/input.h"
#include "platform/win32/instance.h"
#include "platform/win32/wide.h"
#include "platform/win32/win32_surface.h"

namespace keyscout {
namespace {

constexpr int rowsShown = 9;
constexpr UINT showDropDownMessage = 335;  // CB_SHOWDROPDOWN
constexpr UINT setRedrawMessage = 11;      // WM_SETREDRAW

[[noreturn]] void refuseEntry() {
  throw platformFailure(PlatformError::invalidArgument, u"DropDownList");
}

RECT rectangleOf(HWND window) {
  RECT rectangle{};
  GetWindowRect(window, &rectangle);
  return rectangle;
}

void setStyle(HWND window, int which, LONG_PTR bits, bool on) {
  const LONG_PTR before = GetWindowLongPtrW(window, which);
  SetWindowLongPtrW(window, which, on ? before | bits : before & ~bits);
}

int heightOf(const RECT& rectangle) { return rectangle.bottom - rectangle.top; }

}  // namespace

Win32List::Win32List(Win32Surface& surface, HWND parent, DropDownListReports& reports)
    : surface_(surface),
      reports_(&reports),
      combo_(*this, surface, &Win32List::onComboMessage),
      edit_(*this, surface, &Win32List::onEditMessage),
      dropDown_(*this, surface, &Win32List::onDropDownMessage) {
  create(parent);
}

void Win32List::create(HWND parent) {
  const HWND combo =
      CreateWindowExW(0, L"COMBOBOX", L"",
                      WS_CHILD | WS_CLIPSIBLINGS | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL |
                          CBS_NOINTEGRALHEIGHT | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS,
                      0, 0, 0, 0, parent, nullptr, thisInstance(), nullptr);
  if (!combo) throw platformFailure(PlatformError::outOfMemory, u"DropDownList");
  combo_.attach(combo);
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  if (GetComboBoxInfo(combo, &parts)) {
    edit_.attach(parts.hwndItem);
    dropDown_.attach(parts.hwndList);
  }
  takeFont();
  takeDirection();
}

Win32List::~Win32List() {
  if (window()) DestroyWindow(window());
}

void Win32List::renew(HWND parent) {
  const HWND before = window();
  std::vector<String> entries;
  for (std::int16_t entry = 0; isEntry(entry); ++entry) entries.push_back(entryText(entry));
  for (Part* const part : {&combo_, &edit_, &dropDown_}) part->detach();
  create(parent);
  for (const String& entry : entries) append(entry);
  restoreSelection();
  setVisible(True);
  surface_.retireWindow(before);
}

void Win32List::retire() {
  reports_ = nullptr;
  park();
}

void Win32List::park() {
  if (!window()) return;
  const ByCode guard{*this};
  SendMessageA(window(), showDropDownMessage, 0, 0);
  ShowWindow(window(), SW_HIDE);
  SetParent(window(), HWND_MESSAGE);
}

LRESULT Win32List::send(UINT message, WPARAM wParam, LPARAM lParam) const {
  return SendMessageW(window(), message, wParam, lParam);
}

template <class Report>
void Win32List::report(Report&& report) {
  if (!reports_) return;
  const FocusTracker::Hold handler{surface_.focusTracker()};
  report(*reports_);
}

bool Win32List::isDropped() const { return window() && send(CB_GETDROPPEDSTATE) != 0; }

void Win32List::takeFont() {
  rearrange([&] { fitToFont(); });
}

void Win32List::fitToFont() {
  send(WM_SETFONT, std::bit_cast<WPARAM>(surface_.font()), TRUE);
  // The part that the text box hides is as high as the text box, so the list begins below it.
  constexpr WPARAM selectionField = static_cast<WPARAM>(-1);
  send(CB_SETITEMHEIGHT, 0, lineHeight(surface_.font()));
  fitDropDown();
  auto fieldHeight = static_cast<int>(send(CB_GETITEMHEIGHT, selectionField));
  // What is set comes out a little larger on some systems: the second round corrects that.
  for (int round = 0; round < 2; ++round) {
    const int excess = heightOf(rectangleOf(window())) - surface_.textHeight();
    if (excess == 0) break;
    fieldHeight -= excess;
    send(CB_SETITEMHEIGHT, selectionField, std::max(1, fieldHeight));
  }
  fitDropDown();
}

void Win32List::takeDirection() {
  const HWND list = dropDown_.window();
  rearrange([&] {
    setStyle(list, GWL_EXSTYLE, WS_EX_RIGHT | WS_EX_LEFTSCROLLBAR, surface_.isRightToLeft());
    SetWindowPos(list, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
  });
}

/// Entries begin where the text box's text does, which list boxes of the system do not.
void Win32List::drawEntry(const DRAWITEMSTRUCT& item) const {
  const bool isSelected = (item.itemState & ODS_SELECTED) != 0;
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(isSelected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  const auto entry = static_cast<std::int16_t>(item.itemID);
  if (!isEntry(entry)) return;
  const std::wstring text = toWide(entryText(entry));
  RECT area = item.rcItem;
  InflateRect(&area, -(surface_.textInset() - GetSystemMetrics(SM_CXBORDER)), 0);
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, GetSysColor(isSelected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
  const UINT direction = surface_.isRightToLeft() ? DT_RIGHT : DT_LEFT;
  DrawTextW(item.hDC, text.data(), static_cast<int>(text.size()), &area,
            DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_NOCLIP | direction);
}

void Win32List::setLeft(float left) {
  at_.x = static_cast<LONG>(left);
  fitDropDown();
}
void Win32List::setTop(float top) {
  at_.y = static_cast<LONG>(top);
  fitDropDown();
}
void Win32List::setWidth(float width) {
  rearrange([&] {
    width_ = static_cast<int>(width);
    fitDropDown();
  });
}

void Win32List::setTabStop(Boolean tabStop) {
  setStyle(window(), GWL_STYLE, WS_TABSTOP, tabStop ? true : false);
}

void Win32List::setVisible(Boolean visible) { ShowWindow(window(), visible ? SW_SHOWNA : SW_HIDE); }

std::int16_t Win32List::entryCount() const { return static_cast<std::int16_t>(send(CB_GETCOUNT)); }

void Win32List::append(StringView entry) {
  const std::wstring text = toWide(entry);
  if (send(CB_ADDSTRING, 0, std::bit_cast<LPARAM>(text.c_str())) < 0)
    throw platformFailure(PlatformError::outOfMemory, u"DropDownList");
  fitDropDown();
}

void Win32List::removeFirst() {
  if (entryCount() == 0) refuseEntry();
  send(CB_DELETESTRING, 0);
  if (selected_ >= 0) --selected_;
  restoreSelection();
  fitDropDown();
}

void Win32List::clear() {
  send(CB_RESETCONTENT);
  selected_ = -1;
}

String Win32List::entryText(std::int16_t entry) const {
  if (!isEntry(entry)) refuseEntry();
  const auto index = static_cast<WPARAM>(entry);
  const auto length = static_cast<std::size_t>(send(CB_GETLBTEXTLEN, index));
  std::wstring text(length + 1, L'\0');
  send(CB_GETLBTEXT, index, std::bit_cast<LPARAM>(text.data()));
  return fromWide({text.data(), length});
}

void Win32List::select(std::int16_t entry) {
  if (entry != -1 && !isEntry(entry)) refuseEntry();
  selected_ = entry;
  send(CB_SETCURSEL, static_cast<WPARAM>(entry));
  report([](DropDownListReports& to) { to.clicked(); });
}

void Win32List::restoreSelection() {
  if (send(CB_GETCURSEL) != selected_) send(CB_SETCURSEL, static_cast<WPARAM>(selected_));
}

void Win32List::setFocus() {
  if (reports_) SetFocus(window());
}

void Win32List::showDropDown(bool show) {
  if (!reports_) return;  // out of sight for good
  const bool closes = !show && isDropped();
  if (show && !isDropped()) GetCursorPos(&pointer_);
  {
    const ByCode guard{*this};
    SendMessageA(window(), showDropDownMessage, show ? 1 : 0, 0);
  }
  restoreSelection();
  if (show) {
    choosing_ = false;
    fitDropDown();
    // The pointer was the text box's, and no message changes it while the list has the mouse.
    SetCursor(LoadCursorW(nullptr, IDC_ARROW));
  }
  if (closes && selected_ >= 0) report([](DropDownListReports& to) { to.clicked(); });
}

void Win32List::setRedraw(bool redraw) {
  constexpr WPARAM on = static_cast<WPARAM>(-1);
  redraws_ = redraw;
  SendMessageA(window(), setRedrawMessage, redraw ? on : 0, 0);
  if (!redraw) return;
  fitDropDown();
  InvalidateRect(dropDown_.window(), nullptr, TRUE);
}

/// Shows as many rows as there are entries, nine at most: the system sets the height only when it
/// opens the list. A list that opened upwards keeps its lower edge.
void Win32List::fitDropDown() {
  if (!redraws_ || !window()) return;
  const int row = static_cast<int>(send(CB_GETITEMHEIGHT, 0));
  const int frame = 2 * GetSystemMetrics(SM_CYBORDER);
  if (!isDropped()) {
    SetWindowPos(window(), nullptr, at_.x, at_.y, width_,
                 surface_.textHeight() + rowsShown * row + frame, SWP_NOZORDER | SWP_NOACTIVATE);
    return;
  }
  const RECT closed = rectangleOf(window());
  const RECT open = rectangleOf(dropDown_.window());
  const int rows = std::clamp<int>(entryCount(), 1, rowsShown);
  const int height = rows * row + frame;
  const bool upwards = open.top < closed.top;
  SetWindowPos(dropDown_.window(), nullptr, open.left, upwards ? closed.top - height : open.top,
               open.right - open.left, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void Win32List::raise() {
  // Asked to raise a window that counts as the topmost one, such a system does nothing.
  for (const HWND level : {HWND_NOTOPMOST, HWND_TOPMOST})
    SetWindowPos(dropDown_.window(), level, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

void Win32List::scroll(WPARAM wParam, LPARAM lParam) {
  SendMessageW(dropDown_.window(), WM_MOUSEWHEEL, wParam, lParam);
}

void Win32List::onNotification(WORD code) {
  switch (code) {
    case CBN_SELENDOK: choosing_ = true; break;
    case CBN_SELENDCANCEL: choosing_ = false; break;
    case CBN_SELCHANGE: {
      const auto now = static_cast<std::int16_t>(send(CB_GETCURSEL));
      // A key that changes nothing is no click; a click on what is selected already is one.
      const bool isClick = std::exchange(selected_, now) != now || choosing_;
      choosing_ = false;
      if (isClick) report([](DropDownListReports& to) { to.clicked(); });
      break;
    }
    case CBN_DROPDOWN: surface_.wantedKeysChanged(); break;
    case CBN_CLOSEUP:
      surface_.wantedKeysChanged();
      if (closingByCode_ == 0 && !choosing_) surface_.listClosedByUser();
      break;
    case CBN_EDITCHANGE: report([](DropDownListReports& to) { to.editChanged(); }); break;
    default: break;
  }
}

LRESULT Win32List::onComboMessage(Part& part, UINT message, WPARAM wParam, LPARAM lParam) {
  return part.original(message, wParam, lParam);
}

LRESULT Win32List::onEditMessage(Part& part, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN: return onKeyDown(message, wParam, lParam);
    case WM_CHAR:
    case WM_SYSCHAR:
      if (swallowCharacter_) return 0;
      break;
    case WM_KEYUP:
    case WM_SYSKEYUP: {
      auto keyCode = static_cast<std::int16_t>(wParam);
      std::int16_t shift = modifierMask();
      report([&](DropDownListReports& to) { to.keyUp(keyCode, shift); });
      break;
    }
    case WM_GETDLGCODE: return surface_.dialogCode(lParam);
    case WM_MOUSEWHEEL:
      // A closed list must not move its selection unseen.
      surface_.scrollList(wParam, lParam);
      return 0;
    case WM_SETFOCUS: {
      const LRESULT result = part.original(message, wParam, lParam);
      surface_.focusCame(FocusPlace::list);
      return result;
    }
    case WM_KILLFOCUS: {
      const LRESULT result = part.original(message, wParam, lParam);
      surface_.focusGoes(std::bit_cast<HWND>(wParam));
      return result;
    }
    default: break;
  }
  return part.original(message, wParam, lParam);
}

LRESULT Win32List::onKeyDown(UINT message, WPARAM wParam, LPARAM lParam) {
  // The key starts from the entry that is selected, not from the one under the mouse pointer.
  restoreSelection();
  auto keyCode = static_cast<std::int16_t>(wParam);
  std::int16_t shift = modifierMask();
  report([&](DropDownListReports& to) { to.keyDown(keyCode, shift); });
  // What is left for the combo box to do with a key is to move its selection or to close. A key
  // that took the focus elsewhere has done its work, and Enter only closes what it accepts from.
  // Only lookups open a list: Alt with an arrow would open the one that it has just closed.
  const bool isArrow = keyCode == KeyCodes::down || keyCode == KeyCodes::up;
  const bool opens = (message == WM_SYSKEYDOWN && isArrow) || (keyCode == VK_F4 && !isDropped());
  const bool isDone =
      keyCode == 0 || keyCode == KeyCodes::enter || opens || GetFocus() != edit_.window();
  swallowCharacter_ = isDone;
  if (isDone) return 0;
  return edit_.original(message, static_cast<std::uint16_t>(keyCode), lParam);
}

/// An open list has the mouse to itself, and closes on a press beside it. Where that was meant for
/// a text box of ours, the text box gets it as well.
LRESULT Win32List::onPress(Part& part, WPARAM wParam, LPARAM lParam) {
  POINT at{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  ClientToScreen(part.window(), &at);
  const HWND under = WindowFromPoint(at);
  const bool isBeside = under != part.window() && Subclass::isAttached(under);
  const LRESULT result = part.original(WM_LBUTTONDOWN, wParam, lParam);
  if (!isBeside || !IsWindow(under)) return result;
  ScreenToClient(under, &at);
  SendMessageW(under, WM_LBUTTONDOWN, wParam, MAKELPARAM(at.x, at.y));
  return result;
}

LRESULT Win32List::onDropDownMessage(Part& part, UINT message, WPARAM wParam, LPARAM lParam) {
  // A scroll bar that comes or goes on the left moves what is drawn already.
  if (message == WM_SIZE) InvalidateRect(part.window(), nullptr, TRUE);
  if (message == WM_LBUTTONDOWN) return onPress(part, wParam, lParam);
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
