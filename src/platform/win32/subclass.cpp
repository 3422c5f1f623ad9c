#include "platform/win32/subclass.h"
#include "platform/win32/parameters.h"

namespace keyscout {
namespace {

constexpr wchar_t propertyName[] = L"Keyscout.Subclass";

}  // namespace

void Subclass::attach(HWND window) {
  window_ = window;
  SetPropW(window, propertyName, this);
  const LONG_PTR before = SetWindowLongPtrW(window, GWLP_WNDPROC, asParameter(&procedure));
  original_ = pointerIn<WNDPROC>(before);
}

void Subclass::detach() {
  SetWindowLongPtrW(window_, GWLP_WNDPROC, asParameter(original_));
  RemovePropW(window_, propertyName);
  window_ = nullptr;
}

bool Subclass::isAttached(HWND window) { return window && GetPropW(window, propertyName); }

LRESULT Subclass::original(UINT message, WPARAM wParam, LPARAM lParam) {
  return window_ ? CallWindowProcW(original_, window_, message, wParam, lParam) : 0;
}

LRESULT CALLBACK Subclass::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* const self = static_cast<Subclass*>(GetPropW(window, propertyName));
  if (!self) return DefWindowProcW(window, message, wParam, lParam);
  const Busy busy{self->busy_};
  if (message == WM_NCDESTROY) {
    RemovePropW(window, propertyName);
    self->window_ = nullptr;
    return CallWindowProcW(self->original_, window, message, wParam, lParam);
  }
  try {
    return self->onMessage(message, wParam, lParam);
  } catch (...) {
    return 0;  // a window's callers know no exceptions
  }
}

}  // namespace keyscout
