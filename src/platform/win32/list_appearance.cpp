// The windows of a drop-down list: how they come and go, and how they look.

#include <algorithm>
#include <bit>
#include <vector>

#include "base/error.h"
#include "platform/win32/instance.h"
#include "platform/win32/wide.h"
#include "platform/win32/win32_surface.h"

namespace keyscout {
namespace {

constexpr int rowsShown = 9;

RECT rectangleOf(HWND window) {
  RECT rectangle{};
  GetWindowRect(window, &rectangle);
  return rectangle;
}

int heightOf(const RECT& rectangle) { return rectangle.bottom - rectangle.top; }

}  // namespace

Win32List::Win32List(Win32Surface& surface, HWND parent, DropDownListObserver& observer)
    : surface_(surface),
      observer_(&observer),
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

void Win32List::takePlace() {
  rearrange([&] { fitDropDown(); });
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

}  // namespace keyscout
