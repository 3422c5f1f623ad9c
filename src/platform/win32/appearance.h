#pragma once

#include <windows.h>

namespace keyscout {

/// Dots per inch of the screen that `window` is on, as far as its process looks at that.
int dpiOf(HWND window);

/// `pixels` of a screen with 96 dots per inch at `dpi`.
inline int scaled(int pixels, int dpi) { return MulDiv(pixels, dpi, USER_DEFAULT_SCREEN_DPI); }

/// The font in which Windows writes messages, at `dpi`.
LOGFONTW messageFont(int dpi);

/// An OLE colour, one of the system's or a mixture of red, green and blue, for drawing. What is no
/// colour gives `otherwise`.
COLORREF colorOf(LONG oleColor, COLORREF otherwise);

/// Sets or clears `bits` of one of a window's styles, GWL_STYLE or GWL_EXSTYLE.
void setStyle(HWND window, int which, LONG_PTR bits, bool on);

/// The OLE colour that stands for a colour of the system.
constexpr LONG systemColor(int index) {
  return static_cast<LONG>(0x80000000u | static_cast<unsigned>(index));
}

}  // namespace keyscout
