#include "platform/win32/win32_text_box.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <utility>

#include "base/error.h"
#include "platform/win32/instance.h"
#include "platform/win32/parameters.h"
#include "platform/win32/wide.h"
#include "platform/win32/window_failure.h"

namespace keyscout {
namespace {

WPARAM notNegative(std::int32_t value) {
  if (value < 0) throw platformFailure(PlatformError::invalidPropertyValue, u"TextBox");
  return static_cast<WPARAM>(value);
}

struct Selection {
  DWORD start = 0;
  DWORD end = 0;
};

Selection selectionOf(HWND edit) {
  Selection selection;
  SendMessageW(edit, EM_GETSEL, asParameter<WPARAM>(&selection.start), asParameter(&selection.end));
  return selection;
}

}  // namespace

Win32TextBox::Win32TextBox(WidgetSite& site) : Subclass(site), site_(site) {}

HWND Win32TextBox::makeWindow(HWND parent) const {
  const bool rightToLeft = site_.look().isRightToLeft();
  const DWORD extendedStyle = rightToLeft ? WS_EX_RIGHT : 0;
  const DWORD style = rightToLeft ? ES_RIGHT : ES_LEFT;
  const HWND edit =
      CreateWindowExW(WS_EX_CLIENTEDGE | extendedStyle, L"EDIT", L"",
                      WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP | ES_AUTOHSCROLL | style,
                      0, 0, 0, 0, parent, nullptr, thisInstance(), nullptr);
  if (!edit) refuseWindow(u"TextBox");
  SendMessageW(edit, EM_SETLIMITTEXT, 0, 0);
  return edit;
}

void Win32TextBox::create(HWND parent) {
  attach(makeWindow(parent));
  applyFont();
}

void Win32TextBox::recreate(HWND parent) {
  const HWND before = window();
  if (!before) return;
  const HWND edit = makeWindow(parent);
  const std::wstring content = toWide(text());
  const Selection selection = selectionOf(before);
  const float wide = width();
  const bool hasFocus = GetFocus() == before;
  SendMessageW(edit, EM_SETREADONLY, readOnly() ? TRUE : FALSE, 0);
  EnableWindow(edit, IsWindowEnabled(before));
  detach();
  attach(edit);
  pressed_ = false;  // that was the window before
  applyFont();
  setWidth(wide);
  // Only now, since an edit window that is too narrow for its text scrolls it. The text is no
  // change, so nobody is told of it.
  TextBoxObserver* const observer = std::exchange(observer_, nullptr);
  SetWindowTextW(edit, content.c_str());
  observer_ = observer;
  SendMessageW(edit, EM_SETSEL, selection.start, static_cast<LPARAM>(selection.end));
  toolTip_ = nullptr;
  if (!toolTipText_.empty()) setToolTipText(String{toolTipText_});
  if (hasFocus) SetFocus(edit);
  site_.retireWindow(before);
}

void Win32TextBox::report(const std::function<void(TextBoxObserver&)>& report) {
  if (!observer_) return;
  const FocusTracker::Hold handler{site_.focusTracker()};
  report(*observer_);
}

void Win32TextBox::applyFont() {
  LOGFONTW description = site_.look().fontDescription();
  if (bold_) description.lfWeight = FW_BOLD;
  Font font{CreateFontIndirectW(&description)};
  SendMessageW(window(), WM_SETFONT, asParameter<WPARAM>(font.get()), TRUE);
  font_ = std::move(font);
  const auto margin = static_cast<WORD>(site_.look().inset() - GetSystemMetrics(SM_CXEDGE));
  SendMessageW(window(), EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(margin, margin));
  const RECT now = place();
  SetWindowPos(window(), nullptr, 0, 0, now.right - now.left, site_.look().boxHeight(),
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

HBRUSH Win32TextBox::prepareDrawing(HDC target) {
  const COLORREF back = shownBackColor();
  SetTextColor(target, shownForeColor());
  SetBkColor(target, back);
  background_.reset(CreateSolidBrush(back));
  return background_.get();
}

COLORREF Win32TextBox::shownForeColor() const {
  if (!enabled()) return GetSysColor(COLOR_GRAYTEXT);
  return colorOf(foreColor(), GetSysColor(COLOR_WINDOWTEXT));
}

COLORREF Win32TextBox::shownBackColor() const {
  const bool takesText = enabled() && !readOnly();
  if (!backColor_ && !takesText) return GetSysColor(COLOR_BTNFACE);
  return colorOf(backColor(), GetSysColor(COLOR_WINDOW));
}

void Win32TextBox::redraw() {
  RedrawWindow(window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
}

void Win32TextBox::textChanged() {
  report([](TextBoxObserver& observer) { observer.changed(); });
}
void Win32TextBox::gotFocus() {
  if (observer_) observer_->gotFocus();
}
void Win32TextBox::lostFocus() {
  if (observer_) observer_->lostFocus();
}

String Win32TextBox::text() const {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window())) + 1, L'\0');
  const int length = GetWindowTextW(window(), text.data(), static_cast<int>(text.size()));
  return fromWide({text.data(), static_cast<std::size_t>(length)});
}

// The edit window reports the change while it takes the text.
void Win32TextBox::setText(StringView text) {
  // A text of any usual length takes no memory here that could be missing: a host that sets one has
  // lookups disabled meanwhile, and a failure would leave them so.
  std::array<wchar_t, 256> room;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled below
  if (text.size() >= room.size()) {
    SetWindowTextW(window(), toWide(text).c_str());
    return;
  }
  *std::ranges::copy(text, room.begin()).out = L'\0';
  SetWindowTextW(window(), room.data());
}

std::int32_t Win32TextBox::selStart() const {
  return static_cast<std::int32_t>(selectionOf(window()).start);
}

void Win32TextBox::setSelStart(std::int32_t start) {
  const auto length = static_cast<WPARAM>(GetWindowTextLengthW(window()));
  const WPARAM at = std::min(notNegative(start), length);
  SendMessageW(window(), EM_SETSEL, at, static_cast<LPARAM>(at));
  SendMessageW(window(), EM_SCROLLCARET, 0, 0);
}

std::int32_t Win32TextBox::selLength() const {
  const Selection selection = selectionOf(window());
  return static_cast<std::int32_t>(selection.end - selection.start);
}

void Win32TextBox::setSelLength(std::int32_t length) {
  const auto textLength = static_cast<WPARAM>(GetWindowTextLengthW(window()));
  const WPARAM start = selectionOf(window()).start;
  const WPARAM end = std::min(start + notNegative(length), textLength);
  SendMessageW(window(), EM_SETSEL, start, static_cast<LPARAM>(end));
}

void Win32TextBox::setFocus() {
  site_.keepListOpen([&] { SetFocus(window()); });
}

Boolean Win32TextBox::enabled() const { return IsWindowEnabled(window()) != FALSE; }

void Win32TextBox::setEnabled(Boolean enabled) {
  EnableWindow(window(), enabled ? TRUE : FALSE);
  redraw();
}

Boolean Win32TextBox::readOnly() const {
  return (GetWindowLongPtrW(window(), GWL_STYLE) & ES_READONLY) != 0;
}

void Win32TextBox::setReadOnly(Boolean readOnly) {
  SendMessageW(window(), EM_SETREADONLY, readOnly ? TRUE : FALSE, 0);
  redraw();
}

void Win32TextBox::setForeColor(std::int32_t color) {
  foreColor_ = color;
  redraw();
}

void Win32TextBox::setBackColor(std::int32_t color) {
  backColor_ = color;
  redraw();
}

void Win32TextBox::setFontBold(Boolean bold) {
  bold_ = bold;
  applyFont();
}

void Win32TextBox::setToolTipText(StringView text) {
  toolTipText_ = text;
  std::wstring wide = toWide(text);
  TOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = window();
  tool.uId = asParameter<UINT_PTR>(window());
  tool.lpszText = wide.data();
  if (!toolTip_) {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES};
    InitCommonControlsEx(&classes);
    toolTip_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP,
                               CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, window(),
                               nullptr, thisInstance(), nullptr);
    SendMessageW(toolTip_, TTM_ADDTOOLW, 0, asParameter(&tool));
  }
  SendMessageW(toolTip_, TTM_UPDATETIPTEXTW, 0, asParameter(&tool));
}

RECT Win32TextBox::place() const {
  RECT onScreen{};
  GetWindowRect(window(), &onScreen);
  std::array<POINT, 2> corners{{{onScreen.left, onScreen.top}, {onScreen.right, onScreen.bottom}}};
  MapWindowPoints(HWND_DESKTOP, GetParent(window()), corners.data(), 2);
  return {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}

float Win32TextBox::left() const { return static_cast<float>(place().left); }
float Win32TextBox::top() const { return static_cast<float>(place().top); }
float Win32TextBox::width() const {
  const RECT now = place();
  return static_cast<float>(now.right - now.left);
}
int Win32TextBox::height() const {
  const RECT now = place();
  return now.bottom - now.top;
}

void Win32TextBox::setWidth(float width) {
  SetWindowPos(window(), nullptr, 0, 0, static_cast<int>(width), height(),
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Win32TextBox::bringToFront() {
  SetWindowPos(window(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

}  // namespace keyscout
