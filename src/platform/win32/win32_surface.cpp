#include "platform/win32/win32_surface.h"

#include <utility>

#include "base/error.h"
#include "platform/win32/instance.h"
#include "platform/win32/label.h"
#include "platform/win32/parameters.h"
#include "platform/win32/wide.h"
#include "platform/win32/window_failure.h"

namespace keyscout {
namespace {

constexpr int defaultWidth = 121;

SIZE sizeOf(const RECT& rectangle) {
  return {rectangle.right - rectangle.left, rectangle.bottom - rectangle.top};
}

}  // namespace

Win32Surface::Win32Surface(SurfaceOwner& owner)
    : owner_(owner), form_(ThreadForm::ofThisThread()), textBox_(*this) {
  // Nothing that happens during construction is work of the owner, which is not complete yet.
  ++depth_;
  try {
    createWindow();
    if (!window_) refuseWindow(u"ControlSurface");
    updateLook();
    textBox_.create(window_);
    const int width = scaled(defaultWidth, look_.dpi());
    textBox_.setWidth(static_cast<float>(width));
    moveTo({0, 0, width, look_.boxHeight()});
  } catch (...) {
    destroyWindows();
    throw;
  }
  --depth_;
}

Win32Surface::~Win32Surface() {
  ++depth_;
  focusTracker().forget(*this);
  list_.reset();
  retiredLists_.clear();
  destroyWindows();
}

void Win32Surface::destroyWindows() noexcept {
  if (window_) {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);  // no message is this surface's any more
    DestroyWindow(window_);
  }
  if (textBox_.window()) DestroyWindow(textBox_.window());
  for (const HWND window : retiredWindows_) DestroyWindow(window);
}

void Win32Surface::enter() noexcept {
  if (depth_++ == 0) owner_.workBegins();
}

void Win32Surface::leave() noexcept {
  if (depth_ == 1) {
    if (!window_) restore();
    retiredLists_.clear();
    for (const HWND window : std::exchange(retiredWindows_, {})) DestroyWindow(window);
  }
  if (--depth_ == 0) owner_.workEnds();
}

void Win32Surface::beginHostCall() {
  enter();
  focusTracker().hold();
}

void Win32Surface::endHostCall() noexcept {
  focusTracker().release();
  leave();
}

void Win32Surface::setObservers(SurfaceObserver* surface, TextBoxObserver* textBox) {
  observer_ = surface;
  textBox_.setObserver(textBox);
}

bool Win32Surface::placeOn(HWND parent, const RECT& at) {
  if (!window_ || !SetParent(window_, parent)) return false;
  setStyle(window_, GWL_EXSTYLE, WS_EX_NOPARENTNOTIFY, false);
  updateLook();
  moveTo(at);
  // Behind what is on the form already, as a window that is made there is: labels stand before it.
  SetWindowPos(window_, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  ShowWindow(window_, SW_SHOWNA);
  return true;
}

void Win32Surface::moveTo(const RECT& at) {
  const SIZE size = sizeOf(at);
  SetWindowPos(window_, nullptr, at.left, at.top, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
  if (list_) list_->moveWithSurface();
}

void Win32Surface::resize(SIZE pixels) {
  SetWindowPos(window_, nullptr, 0, 0, pixels.cx, pixels.cy,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Win32Surface::clipTo(const RECT& at, const RECT& clip) {
  RECT visible{};
  IntersectRect(&visible, &at, &clip);
  if (EqualRect(&visible, &at)) {
    SetWindowRgn(window_, nullptr, TRUE);
    return;
  }
  OffsetRect(&visible, -at.left, -at.top);
  SetWindowRgn(window_, CreateRectRgnIndirect(&visible), TRUE);  // the window owns the region
}

void Win32Surface::park() {
  if (!window_) return;
  if (hasFocus()) SetFocus(GetParent(window_));
  ShowWindow(window_, SW_HIDE);
  SetParent(window_, HWND_MESSAGE);
  setStyle(window_, GWL_EXSTYLE, WS_EX_NOPARENTNOTIFY, true);
}

SIZE Win32Surface::size() const {
  RECT rectangle{};
  GetWindowRect(window_, &rectangle);
  return sizeOf(rectangle);
}

void Win32Surface::takeFocus() {
  const HWND edit = textBox_.window();
  SetFocus(edit && IsWindowEnabled(edit) ? edit : window_);
}

bool Win32Surface::hasFocus() const {
  const HWND focused = GetFocus();
  return focused && (focused == window_ || IsChild(window_, focused));
}

void Win32Surface::setBaseFont(const LOGFONTW* font) {
  look_.setBaseFont(font);
  updateLook();
}

void Win32Surface::updateLook() {
  const Font before = look_.update(window_);
  if (!textBox_.window()) return;
  textBox_.applyFont();
  if (list_) list_->applyFont();
}

void Win32Surface::setBackground(LONG oleColor) {
  background_ = oleColor;
  InvalidateRect(window_, nullptr, TRUE);
}

void Win32Surface::setRightToLeft(bool rightToLeft) {
  if (rightToLeft == look_.isRightToLeft()) return;
  look_.setRightToLeft(rightToLeft);
  keepListOpen([&] { textBox_.recreate(window_); });
  if (list_) list_->applyDirection();
}

DropDownList& Win32Surface::addDropDownList(StringView name, DropDownListObserver& observer) {
  WidgetSite& site = *this;
  list_ = std::make_unique<Win32List>(site, window_, observer);
  listName_ = name;
  return *list_;
}

void Win32Surface::removeChild(StringView name) {
  if (!list_ || name != listName_)
    throw platformFailure(PlatformError::invalidArgument, u"ControlSurface");
  const Busy busy{*this};
  formHook_.reset();
  retiredLists_.push_back(std::move(list_));
  retiredLists_.back()->retire();
  focusTracker().listRemoved(*this);
}

void Win32Surface::retireWindow(HWND window) {
  const Busy busy{*this};
  retiredWindows_.push_back(window);
  ShowWindow(window, SW_HIDE);
  SetParent(window, HWND_MESSAGE);
}

void Win32Surface::setEnabled(Boolean enabled) { EnableWindow(window_, enabled ? TRUE : FALSE); }

void Win32Surface::focusCame(FocusPlace place) {
  if (!form_->followsFocus()) return;
  if (list_ && list_->isDropped()) list_->raise();
  // The host may move the focus when it is told, so it is told last.
  focusTracker().moveTo(*this, place);
  if (hasFocus()) owner_.focusCame();
}

void Win32Surface::focusGoes(HWND next) {
  if (!form_->followsFocus()) return;
  // A move between places of controls is told by where it goes to.
  if (Subclass::isAttached(next) || isSurface(next)) return;
  focusTracker().leave();
}

void Win32Surface::surfaceLostFocus() noexcept {
  if (observer_) observer_->lostFocus();
}

void Win32Surface::focusLeft() noexcept {
  if (observer_) observer_->focusLeft();
  owner_.focusLeft();
}

void Win32Surface::listClosedByUser() {
  const FocusTracker::Hold handler{focusTracker()};
  owner_.listClosedByUser();
  // No field without a caret: a list that is closed shows none.
  if (list_ && list_->hasFocus() && IsWindowVisible(textBox_.window())) textBox_.setFocus();
}

bool Win32Surface::scrollList(WPARAM wParam, LPARAM lParam) {
  const bool open = list_ && list_->isDropped();
  if (open) list_->scroll(wParam, lParam);
  return open;
}

void Win32Surface::keepListOpen(const std::function<void()>& move) {
  if (list_)
    list_->keepOpen(move);
  else
    move();
}

void Win32Surface::characterCameToList(WPARAM character, LPARAM keyData) {
  const HWND edit = textBox_.window();
  if (edit && GetFocus() == edit) textBox_.takeCharacter(character, keyData);
}

bool Win32Surface::wantsKey(WPARAM keyCode) const {
  switch (keyCode) {
    case VK_UP:
    case VK_DOWN:
    case VK_LEFT:
    case VK_RIGHT:
    case VK_HOME:
    case VK_END:
    case VK_PRIOR:
    case VK_NEXT: return true;
    case VK_RETURN:
    case VK_ESCAPE: return list_ && list_->isDropped();
    default: return false;
  }
}

std::wstring Win32Surface::accessibleName() const {
  std::wstring name = labelBefore(window_);
  if (name.empty()) name = toWide(displayName_);
  if (name.empty()) name = toWide(textBox_.toolTipText());
  return name;
}

LRESULT Win32Surface::dialogCode(LPARAM lParam) const {
  const auto* const message = pointerIn<const MSG*>(lParam);
  const bool wanted = message && message->message == WM_KEYDOWN && wantsKey(message->wParam);
  return DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_HASSETSEL | (wanted ? DLGC_WANTMESSAGE : 0);
}

}  // namespace keyscout
