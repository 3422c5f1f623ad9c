// How a drop-down list looks: its font, its direction, its size, its entries.

#include <algorithm>

#include "platform/win32/appearance.h"
#include "platform/win32/gdi.h"
#include "platform/win32/parameters.h"
#include "platform/win32/wide.h"
#include "platform/win32/win32_list.h"

namespace keyscout {
namespace {

constexpr int rowsShown = 9;

RECT rectangleOf(HWND window) {
  RECT rectangle{};
  GetWindowRect(window, &rectangle);
  return rectangle;
}

/// The part of a screen that windows may cover, of the screen that most of `place` is on.
RECT workAreaAround(const RECT& place) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST), &monitor);
  return monitor.rcWork;
}

int heightOf(const RECT& rectangle) { return rectangle.bottom - rectangle.top; }

}  // namespace

void Win32List::applyFont() {
  rearrange([&] { fitToFont(); });
}

void Win32List::fitToFont() {
  for (std::size_t entry = 0; entry < entryWidths_.size(); ++entry)
    entryWidths_[entry] = measure(entryText(static_cast<std::int16_t>(entry)));
  send(WM_SETFONT, asParameter<WPARAM>(site_.look().font()), TRUE);
  // The part that the text box hides is as high as the text box, so the list begins below it.
  constexpr auto selectionField = static_cast<WPARAM>(-1);
  send(CB_SETITEMHEIGHT, 0, site_.look().lineHeight());
  fitDropDown();
  auto fieldHeight = static_cast<int>(send(CB_GETITEMHEIGHT, selectionField));
  // What is set comes out a little larger on some systems: the second round corrects that.
  for (int round = 0; round < 2; ++round) {
    const int excess = heightOf(rectangleOf(window())) - site_.look().boxHeight();
    if (excess == 0) break;
    fieldHeight -= excess;
    send(CB_SETITEMHEIGHT, selectionField, std::max(1, fieldHeight));
  }
  fitDropDown();
}

void Win32List::applyDirection() {
  const HWND list = dropDown_.window();
  rearrange([&] {
    setStyle(list, GWL_EXSTYLE, WS_EX_RIGHT | WS_EX_LEFTSCROLLBAR, site_.look().isRightToLeft());
    SetWindowPos(list, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
  });
}

void Win32List::moveWithSurface() {
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
  InflateRect(&area, -insetOfEntry(), 0);
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, GetSysColor(isSelected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
  const UINT direction = site_.look().isRightToLeft() ? DT_RIGHT : DT_LEFT;
  // What the screen is too narrow for is cut at its end in both directions.
  DrawTextW(item.hDC, text.data(), static_cast<int>(text.size()), &area,
            DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS | direction);
}

/// From the inside of the list to an entry's text.
int Win32List::insetOfEntry() const { return site_.look().inset() - GetSystemMetrics(SM_CXBORDER); }

int Win32List::measure(StringView entry) const {
  const std::wstring text = toWide(entry);
  const WindowContext screen;
  const Selected selected{screen, site_.look().font()};
  SIZE size{};
  GetTextExtentPoint32W(screen, text.data(), static_cast<int>(text.size()), &size);
  return size.cx;
}

/// As wide as the text box, and wider where an entry needs it.
int Win32List::neededWidth() const {
  if (entryWidths_.empty()) return width_;
  const int scrollBar = entryCount() > rowsShown ? GetSystemMetrics(SM_CXVSCROLL) : 0;
  const int around = 2 * (insetOfEntry() + GetSystemMetrics(SM_CXBORDER)) + scrollBar;
  return std::max(width_, *std::ranges::max_element(entryWidths_) + around);
}

/// Shows as many rows as there are entries, nine at most, and as much of each as the screen has
/// room for: the system sets the size only when it opens the list. A list that opened upwards keeps
/// its lower edge.
void Win32List::fitDropDown() {
  if (!redraws_ || !window()) return;
  const int row = static_cast<int>(send(CB_GETITEMHEIGHT, 0));
  const int frame = 2 * GetSystemMetrics(SM_CYBORDER);
  if (!isDropped()) {
    SetWindowPos(window(), nullptr, at_.x, at_.y, width_,
                 site_.look().boxHeight() + rowsShown * row + frame, SWP_NOZORDER | SWP_NOACTIVATE);
    return;
  }
  const RECT closed = rectangleOf(window());
  const RECT open = rectangleOf(dropDown_.window());
  const int rows = std::clamp<int>(entryCount(), 1, rowsShown);
  const int height = rows * row + frame;
  const bool upwards = open.top < closed.top;
  const RECT screen = workAreaAround(closed);
  const LONG width =
      std::min<LONG>(neededWidth(), std::max<LONG>(width_, screen.right - screen.left));
  LONG left = site_.look().isRightToLeft() ? closed.right - width : closed.left;
  if (width > width_) left = std::clamp(left, screen.left, screen.right - width);
  SetWindowPos(dropDown_.window(), nullptr, left, upwards ? closed.top - height : open.top, width,
               height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void Win32List::raise() {
  // Asked to raise a window that counts as the topmost one, such a system does nothing.
  for (const HWND level : {HWND_NOTOPMOST, HWND_TOPMOST})
    SetWindowPos(dropDown_.window(), level, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

}  // namespace keyscout
