#pragma once

#include <optional>

#include "platform/win32/gdi.h"

namespace keyscout {

/// How the text of a control looks: its font, its direction, and the lengths that go with them, in
/// pixels.
class TextLook {
 public:
  /// The font that the host wants; null for the message font of Windows. It and the screen that
  /// `window` is on tell how the text looks from `update` on. The font before is given back, since
  /// widgets use it until they are told of the new one.
  void setBaseFont(const LOGFONTW* font);
  [[nodiscard]] Font update(HWND window);

  HFONT font() const { return font_.get(); }
  const LOGFONTW& fontDescription() const { return description_; }
  int dpi() const { return dpi_; }
  int lineHeight() const;
  /// The height of the text box, its border included.
  int boxHeight() const;
  /// From the outside of the text box to its text.
  int inset() const;

  bool isRightToLeft() const { return rightToLeft_; }
  void setRightToLeft(bool rightToLeft) { rightToLeft_ = rightToLeft; }

 private:
  int dpi_ = USER_DEFAULT_SCREEN_DPI;
  std::optional<LOGFONTW> baseFont_;
  LOGFONTW description_{};
  Font font_;
  bool rightToLeft_ = false;
};

}  // namespace keyscout
