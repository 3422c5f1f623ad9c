#include "platform/win32/win32_list.h"

#include <vector>

#include "base/error.h"
#include "platform/win32/appearance.h"
#include "platform/win32/instance.h"
#include "platform/win32/parameters.h"
#include "platform/win32/wide.h"
#include "platform/win32/window_failure.h"

namespace keyscout {
namespace {

constexpr UINT showDropDownMessage = 335;  // CB_SHOWDROPDOWN
constexpr UINT setRedrawMessage = 11;      // WM_SETREDRAW

[[noreturn]] void refuseEntry() {
  throw platformFailure(PlatformError::invalidArgument, u"DropDownList");
}

}  // namespace

Win32List::Win32List(WidgetSite& site, HWND parent, DropDownListObserver& observer)
    : site_(site),
      observer_(&observer),
      combo_(*this, site, &Win32List::onComboMessage),
      edit_(*this, site, &Win32List::onEditMessage),
      dropDown_(*this, site, &Win32List::onDropDownMessage) {
  create(parent);
}

void Win32List::create(HWND parent) {
  const HWND combo =
      CreateWindowExW(0, L"COMBOBOX", L"",
                      WS_CHILD | WS_CLIPSIBLINGS | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL |
                          CBS_NOINTEGRALHEIGHT | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS,
                      0, 0, 0, 0, parent, nullptr, thisInstance(), nullptr);
  if (!combo) refuseWindow(u"DropDownList");
  combo_.attach(combo);
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  if (GetComboBoxInfo(combo, &parts)) {
    edit_.attach(parts.hwndItem);
    dropDown_.attach(parts.hwndList);
  }
  applyFont();
  applyDirection();
}

Win32List::~Win32List() {
  if (window()) DestroyWindow(window());
}

void Win32List::recreate(HWND parent) {
  const HWND before = window();
  std::vector<String> entries;
  for (std::int16_t entry = 0; isEntry(entry); ++entry) entries.push_back(entryText(entry));
  for (Part* const part : {&combo_, &edit_, &dropDown_}) part->detach();
  entryWidths_.clear();
  create(parent);
  for (const String& entry : entries) append(entry);
  restoreSelection();
  setVisible(True);
  site_.retireWindow(before);
}

void Win32List::retire() {
  observer_ = nullptr;
  park();
}

void Win32List::park() {
  if (!window()) return;
  const ByCode guard{*this};
  send(CB_SHOWDROPDOWN, FALSE);
  ShowWindow(window(), SW_HIDE);
  SetParent(window(), HWND_MESSAGE);
}

LRESULT Win32List::send(UINT message, WPARAM wParam, LPARAM lParam) const {
  return SendMessageW(window(), message, wParam, lParam);
}

void Win32List::report(const std::function<void(DropDownListObserver&)>& report) {
  if (!observer_) return;
  const FocusTracker::Hold handler{site_.focusTracker()};
  report(*observer_);
}

bool Win32List::isDropped() const { return window() && send(CB_GETDROPPEDSTATE) != 0; }

bool Win32List::hasFocus() const {
  const HWND focused = GetFocus();
  return focused && (focused == edit_.window() || focused == window());
}

POINT Win32List::placeOnScreen() const {
  RECT place{};
  GetWindowRect(window(), &place);
  return {place.left, place.top};
}

bool Win32List::isLeftBehind() const {
  const POINT now = placeOnScreen();
  return isDropped() && (now.x != shownAt_.x || now.y != shownAt_.y);
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
  width_ = static_cast<int>(width);
  moveWithSurface();
}

void Win32List::setTabStop(Boolean tabStop) {
  setStyle(window(), GWL_STYLE, WS_TABSTOP, tabStop ? true : false);
}

void Win32List::setVisible(Boolean visible) { ShowWindow(window(), visible ? SW_SHOWNA : SW_HIDE); }

std::int16_t Win32List::entryCount() const { return static_cast<std::int16_t>(send(CB_GETCOUNT)); }

void Win32List::append(StringView entry) {
  const std::wstring text = toWide(entry);
  entryWidths_.push_back(measure(entry));
  if (send(CB_ADDSTRING, 0, asParameter(text.c_str())) < 0) {
    entryWidths_.pop_back();
    throw platformFailure(PlatformError::outOfMemory, u"DropDownList");
  }
  fitDropDown();
  tellEntries();
}

void Win32List::removeFirst() {
  if (entryCount() == 0) refuseEntry();
  send(CB_DELETESTRING, 0);
  entryWidths_.erase(entryWidths_.begin());
  if (selected_ >= 0) --selected_;
  restoreSelection();
  fitDropDown();
  tellEntries();
}

void Win32List::tellEntries() const {
  if (redraws_ && isDropped())
    NotifyWinEvent(EVENT_OBJECT_REORDER, dropDown_.window(), OBJID_CLIENT, CHILDID_SELF);
}

void Win32List::tellSelection() const {
  NotifyWinEvent(EVENT_OBJECT_SELECTION, dropDown_.window(), OBJID_CLIENT, selected_ + 1);
}

void Win32List::clear() {
  send(CB_RESETCONTENT);
  entryWidths_.clear();
  selected_ = -1;
  tellEntries();
}

String Win32List::entryText(std::int16_t entry) const {
  if (!isEntry(entry)) refuseEntry();
  const auto index = static_cast<WPARAM>(entry);
  const auto length = static_cast<std::size_t>(send(CB_GETLBTEXTLEN, index));
  std::wstring text(length + 1, L'\0');
  send(CB_GETLBTEXT, index, asParameter(text.data()));
  return fromWide({text.data(), length});
}

void Win32List::select(std::int16_t entry) {
  if (entry == 0 && entryCount() == 0) return;  // there is nothing to select
  if (entry != -1 && !isEntry(entry)) refuseEntry();
  selected_ = entry;
  send(CB_SETCURSEL, static_cast<WPARAM>(entry));
  tellSelection();
  report([](DropDownListObserver& to) { to.clicked(); });
}

void Win32List::restoreSelection() {
  if (send(CB_GETCURSEL) != selected_) send(CB_SETCURSEL, static_cast<WPARAM>(selected_));
}

void Win32List::setFocus() {
  // The combo box would close its list if the focus went from its edit part to itself.
  if (observer_ && GetFocus() != edit_.window()) SetFocus(window());
}

void Win32List::showDropDown(bool show) {
  if (!observer_) return;  // out of sight for good
  const bool closes = !show && isDropped();
  if (show && !isDropped()) GetCursorPos(&pointer_);
  {
    const ByCode guard{*this};
    SendMessageA(window(), showDropDownMessage, show ? 1 : 0, 0);
  }
  restoreSelection();
  if (show) {
    choosing_ = false;
    shownAt_ = placeOnScreen();
    fitDropDown();
    // The pointer was the text box's, and no message changes it while the list has the mouse.
    SetCursor(LoadCursorW(nullptr, IDC_ARROW));
  }
  if (closes && selected_ >= 0) report([](DropDownListObserver& to) { to.clicked(); });
}

void Win32List::setRedraw(bool redraw) {
  constexpr auto on = static_cast<WPARAM>(-1);
  redraws_ = redraw;
  SendMessageA(window(), setRedrawMessage, redraw ? on : 0, 0);
  if (!redraw) return;
  fitDropDown();
  tellEntries();
  InvalidateRect(dropDown_.window(), nullptr, TRUE);
}

void Win32List::scroll(WPARAM wParam, LPARAM lParam) {
  SendMessageW(dropDown_.window(), WM_MOUSEWHEEL, wParam, lParam);
}

}  // namespace keyscout
