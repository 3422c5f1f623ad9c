// The window of a surface: what it answers to messages.

#include <utility>

#include "platform/win32/instance.h"
#include "platform/win32/parameters.h"
#include "platform/win32/win32_surface.h"

namespace keyscout {
namespace {

constexpr wchar_t className[] = L"Keyscout.Surface";
constexpr UINT formMoved = WM_APP;

SRWLOCK registering = SRWLOCK_INIT;
bool isClassRegistered = false;

/// Of several threads that come here at once one registers the class, and the others wait for it:
/// they could make no window while the system is still about it.
void registerClass(WNDPROC procedure) {
  AcquireSRWLockExclusive(&registering);
  WNDCLASSEXW description{};
  description.cbSize = sizeof description;
  description.style = CS_DBLCLKS;
  description.lpfnWndProc = procedure;
  description.hInstance = thisInstance();
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.lpszClassName = className;
  if (!isClassRegistered) isClassRegistered = RegisterClassExW(&description) != 0;
  ReleaseSRWLockExclusive(&registering);
}

}  // namespace

void Win32Surface::createWindow() {
  registerClass(&procedure);
  // Out of sight there is no host to tell of windows that come and go; the system's own window,
  // which is their parent there, belongs to another process.
  CreateWindowExW(WS_EX_CONTROLPARENT | WS_EX_NOPARENTNOTIFY, className, L"",
                  WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                  thisInstance(), this);
}

void Win32Surface::unregisterClass() noexcept {
  if (std::exchange(isClassRegistered, false)) UnregisterClassW(className, thisInstance());
}

bool Win32Surface::isSurface(HWND window) {
  return window && pointerIn<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC)) == &procedure;
}

LRESULT CALLBACK Win32Surface::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* const creation = pointerIn<const CREATESTRUCTW*>(lParam);
    auto* const self = static_cast<Win32Surface*>(creation->lpCreateParams);
    self->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, asParameter(self));
  }
  auto* const self = pointerIn<Win32Surface*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!self) return DefWindowProcW(window, message, wParam, lParam);
  const Busy busy{*self};
  try {
    return self->onMessage(message, wParam, lParam);
  } catch (...) {
    return 0;  // a window's callers know no exceptions
  }
}

LRESULT Win32Surface::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  const HWND window = window_;
  messageArrives(message);
  switch (message) {
    case WM_COMMAND: onCommand(pointerIn<HWND>(lParam), HIWORD(wParam)); return 0;
    case WM_SIZE:
      if (observer_) {
        const FocusTracker::Hold handler{focusTracker()};
        observer_->resized();
        if (list_ && list_->width() != textBox_.width()) list_->setWidth(textBox_.width());
      }
      return 0;
    case WM_SETFOCUS:
      focusCame(FocusPlace::surface);
      if (const HWND edit = textBox_.window(); edit && IsWindowEnabled(edit)) SetFocus(edit);
      return 0;
    case WM_KILLFOCUS: focusGoes(pointerIn<HWND>(wParam)); return 0;
    case WM_LBUTTONDOWN: takeFocus(); return 0;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
      if (pointerIn<HWND>(lParam) != textBox_.window()) break;
      return asParameter(textBox_.prepareDrawing(pointerIn<HDC>(wParam)));
    case WM_DRAWITEM: {
      const auto& item = *pointerIn<const DRAWITEMSTRUCT*>(lParam);
      if (list_ && item.hwndItem == list_->window()) list_->drawEntry(item);
      return TRUE;
    }
    case WM_ERASEBKGND: eraseBackground(pointerIn<HDC>(wParam)); return 1;
    case WM_SYSCOLORCHANGE:
      textBox_.redraw();
      InvalidateRect(window, nullptr, TRUE);
      break;
    case WM_SETTINGCHANGE:
    case WM_DPICHANGED_AFTERPARENT: updateLook(); break;
    case formMoved: onFormMoved(); return 0;
    case WM_DESTROY: onDestroy(); return 0;
    case WM_NCDESTROY:
      SetWindowLongPtrW(window, GWLP_USERDATA, 0);
      window_ = nullptr;
      break;
    default: break;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

void Win32Surface::listOpens() {
  formHook_.reset(
      SetWindowsHookExW(WH_CALLWNDPROCRET, &afterMessage, nullptr, GetCurrentThreadId()));
  NotifyWinEvent(EVENT_OBJECT_STATECHANGE, textBox_.window(), OBJID_CLIENT, CHILDID_SELF);
  owner_.wantedKeysChanged();
}

void Win32Surface::listCloses() {
  formHook_.reset();
  NotifyWinEvent(EVENT_OBJECT_STATECHANGE, textBox_.window(), OBJID_CLIENT, CHILDID_SELF);
  owner_.wantedKeysChanged();
}

/// The open list is a window of its own on the screen: it stays where it is when code moves or
/// hides one of the windows that the surface stands on, of which the system tells that window
/// alone.
LRESULT CALLBACK Win32Surface::afterMessage(int code, WPARAM wParam, LPARAM lParam) {
  const auto* const done = pointerIn<const CWPRETSTRUCT*>(lParam);
  if (code == HC_ACTION && done->message == WM_WINDOWPOSCHANGED && !isSurface(done->hwnd))
    EnumChildWindows(done->hwnd, &tellIfSurface, 0);
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

BOOL CALLBACK Win32Surface::tellIfSurface(HWND child, LPARAM /*unused*/) {
  if (isSurface(child)) SendMessageW(child, formMoved, 0, 0);
  return TRUE;
}

void Win32Surface::onFormMoved() {
  if (!list_ || !list_->isDropped()) return;
  if (!IsWindowVisible(window_) || IsIconic(GetAncestor(window_, GA_ROOT)))
    list_->closeForUser();
  else if (list_->isLeftBehind())
    list_->moveWithSurface();
}

void Win32Surface::onCommand(HWND from, WORD code) {
  if (!from) return;
  if (from == textBox_.window() && code == EN_CHANGE) textBox_.textChanged();
  if (list_ && from == list_->window()) list_->onNotification(code);
}

/// The host destroys the surface's window, or one that it stands on, perhaps inside a message of a
/// widget. The widgets leave it, so that they can be made anew as they were.
void Win32Surface::onDestroy() {
  if (list_ && list_->isDropped()) listClosedByUser();
  if (hasFocus()) SetFocus(nullptr);
  owner_.windowDestroyed();
  if (list_) list_->park();
  ShowWindow(textBox_.window(), SW_HIDE);
  SetParent(textBox_.window(), HWND_MESSAGE);
}

void Win32Surface::restore() noexcept try {
  createWindow();
  if (!window_) return;
  textBox_.recreate(window_);
  if (list_) list_->recreate(window_);
  textBox_.bringToFront();
  moveTo({0, 0, static_cast<LONG>(textBox_.width()), look_.boxHeight()});
} catch (...) {  // NOLINT(bugprone-empty-catch): out of memory; the old windows still have it all
}

void Win32Surface::eraseBackground(HDC target) {
  RECT area{};
  GetClientRect(window_, &area);
  const Brush brush{CreateSolidBrush(colorOf(background_, GetSysColor(COLOR_BTNFACE)))};
  FillRect(target, &area, brush.get());
}

}  // namespace keyscout
