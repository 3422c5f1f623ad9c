#include "platform/win32/appearance.h"

#include <olectl.h>

#include <bit>

#include "platform/win32/gdi.h"

namespace keyscout {
namespace {

/// A function that only newer systems have; null on the others.
template <class Function>
Function* userFunction(const char* name) {
  const HMODULE user = GetModuleHandleW(L"user32.dll");
  const FARPROC address = user ? GetProcAddress(user, name) : nullptr;
  return std::bit_cast<Function*>(address);
}

int dpiOfScreen() {
  const WindowContext screen;
  return GetDeviceCaps(screen, LOGPIXELSY);
}

}  // namespace

int dpiOf(HWND window) {
  static const auto dpiForWindow = userFunction<UINT WINAPI(HWND)>("GetDpiForWindow");
  const UINT dpi = dpiForWindow ? dpiForWindow(window) : 0;
  return dpi != 0 ? static_cast<int>(dpi) : dpiOfScreen();
}

LOGFONTW messageFont(int dpi) {
  static const auto parametersForDpi =
      userFunction<BOOL WINAPI(UINT, UINT, PVOID, UINT, UINT)>("SystemParametersInfoForDpi");
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (parametersForDpi && parametersForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0,
                                           static_cast<UINT>(dpi)))
    return metrics.lfMessageFont;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  metrics.lfMessageFont.lfHeight = MulDiv(metrics.lfMessageFont.lfHeight, dpi, dpiOfScreen());
  return metrics.lfMessageFont;
}

COLORREF colorOf(LONG oleColor, COLORREF otherwise) {
  COLORREF color = otherwise;
  const bool known =
      SUCCEEDED(OleTranslateColor(static_cast<OLE_COLOR>(oleColor), nullptr, &color));
  return known ? color : otherwise;
}

void setStyle(HWND window, int which, LONG_PTR bits, bool on) {
  const LONG_PTR before = GetWindowLongPtrW(window, which);
  SetWindowLongPtrW(window, which, on ? before | bits : before & ~bits);
}

}  // namespace keyscout
