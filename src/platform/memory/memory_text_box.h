#pragma once

#include <cstddef>

#include "platform/memory/memory_form.h"
#include "platform/widgets.h"

namespace keyscout {

/// A text box in memory.
class MemoryTextBox final : public TextBox {
 public:
  MemoryTextBox(MemoryForm& form, FocusObserver& surface, float width)
      : form_(form), surface_(surface), width_(width) {}

  void setObserver(TextBoxObserver* observer) { observer_ = observer; }

  String text() const override { return text_; }
  void setText(StringView text) override;
  std::int32_t selStart() const override { return static_cast<std::int32_t>(start_); }
  void setSelStart(std::int32_t start) override;
  std::int32_t selLength() const override { return static_cast<std::int32_t>(length_); }
  void setSelLength(std::int32_t length) override;
  void setFocus() override;
  Boolean enabled() const override { return enabled_; }
  void setEnabled(Boolean enabled) override { enabled_ = enabled; }
  Boolean readOnly() const override { return readOnly_; }
  void setReadOnly(Boolean readOnly) override { readOnly_ = readOnly; }
  std::int32_t foreColor() const override { return foreColor_; }
  void setForeColor(std::int32_t color) override { foreColor_ = color; }
  std::int32_t backColor() const override { return backColor_; }
  void setBackColor(std::int32_t color) override { backColor_ = color; }
  Boolean fontBold() const override { return fontBold_; }
  void setFontBold(Boolean bold) override { fontBold_ = bold; }
  String toolTipText() const override { return toolTipText_; }
  void setToolTipText(StringView text) override { toolTipText_ = text; }
  float left() const override { return 0; }
  float top() const override { return 0; }
  float width() const override { return width_; }
  void setWidth(float width) override { width_ = width; }
  void bringToFront() override {}

  // What a person does to it. `keyDown` tells whether the key goes on to its character.

  bool keyDown(std::int16_t keyCode, std::int16_t shift);
  void keyPress(char16_t character);
  void keyUp(std::int16_t keyCode, std::int16_t shift);
  void paste(StringView text);

  void mouse(MouseReport report, std::int16_t button, std::int16_t shift, float x, float y);

 private:
  friend class MemorySurface;

  bool isEditable() const { return enabled_ && !readOnly_; }
  void applyKey(std::int16_t keyCode);
  void eraseOr(std::size_t start, std::size_t length);
  void replaceSelection(StringView text);
  void reportChange();

  MemoryForm& form_;
  FocusObserver& surface_;
  TextBoxObserver* observer_ = nullptr;
  String text_;
  std::size_t start_ = 0;
  std::size_t length_ = 0;
  float width_;
  Boolean enabled_ = True;
  Boolean readOnly_;
  Boolean fontBold_;
  std::int32_t foreColor_ = 0x000000;
  std::int32_t backColor_ = 0xFFFFFF;
  String toolTipText_;
};

}  // namespace keyscout
