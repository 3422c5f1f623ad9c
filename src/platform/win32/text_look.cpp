#include "platform/win32/text_look.h"

#include <utility>

#include "platform/win32/appearance.h"

namespace keyscout {

void TextLook::setBaseFont(const LOGFONTW* font) {
  if (font)
    baseFont_ = *font;
  else
    baseFont_.reset();
}

Font TextLook::update(HWND window) {
  dpi_ = dpiOf(window);
  description_ = baseFont_ ? *baseFont_ : messageFont(dpi_);
  return std::exchange(font_, Font{CreateFontIndirectW(&description_)});
}

int TextLook::lineHeight() const {
  const WindowContext screen;
  const Selected selected{screen, font()};
  TEXTMETRICW metrics{};
  GetTextMetricsW(screen, &metrics);
  return metrics.tmHeight;
}

int TextLook::boxHeight() const {
  return lineHeight() + 2 * GetSystemMetrics(SM_CYEDGE) + 2 * scaled(2, dpi_);
}

int TextLook::inset() const { return GetSystemMetrics(SM_CXEDGE) + scaled(1, dpi_); }

}  // namespace keyscout
