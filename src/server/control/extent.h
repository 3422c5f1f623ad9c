#pragma once

#include <windows.h>

namespace keyscout {

/// Containers measure in hundredths of a millimetre.
inline constexpr int himetricPerInch = 2540;

inline SIZEL toHimetric(SIZE pixels, int dpi) {
  return {MulDiv(pixels.cx, himetricPerInch, dpi), MulDiv(pixels.cy, himetricPerInch, dpi)};
}
inline SIZE toPixels(SIZEL himetric, int dpi) {
  return {MulDiv(himetric.cx, dpi, himetricPerInch), MulDiv(himetric.cy, dpi, himetricPerInch)};
}

}  // namespace keyscout
