#include "platform/memory/memory_text_box.h"

#include <algorithm>

#include "base/error.h"

namespace keyscout {
namespace {

std::size_t notNegative(std::int32_t value) {
  if (value < 0) throw platformFailure(PlatformError::invalidPropertyValue, u"TextBox");
  return static_cast<std::size_t>(value);
}

}  // namespace

void MemoryTextBox::setText(StringView text) {
  form_.onCall("setText");
  text_ = text;
  start_ = length_ = 0;
  reportChange();
}

void MemoryTextBox::setSelStart(std::int32_t start) {
  form_.onCall("setSelStart");
  start_ = std::min(notNegative(start), text_.size());
  length_ = 0;
}

void MemoryTextBox::setSelLength(std::int32_t length) {
  form_.onCall("setSelLength");
  length_ = std::min(notNegative(length), text_.size() - start_);
}

void MemoryTextBox::setFocus() {
  form_.onCall("setFocus");
  form_.focusTracker().moveTo(surface_, FocusPlace::textBox);
}

bool MemoryTextBox::keyDown(std::int16_t keyCode, std::int16_t shift) {
  if (observer_) {
    const FocusTracker::Hold handler{form_.focusTracker()};
    observer_->keyDown(keyCode, shift);
  }
  if (keyCode == 0) return false;
  if ((shift & (Modifier::ctrl | Modifier::alt)) == 0) applyKey(keyCode);
  return true;
}

void MemoryTextBox::keyPress(char16_t character) {
  auto code = static_cast<std::int16_t>(character);
  if (observer_) {
    const FocusTracker::Hold handler{form_.focusTracker()};
    observer_->keyPress(code);
  }
  if (code == 0) return;
  const auto typed = static_cast<char16_t>(code);
  if (isEditable()) replaceSelection({&typed, 1});
}

void MemoryTextBox::keyUp(std::int16_t keyCode, std::int16_t shift) {
  const FocusTracker::Hold handler{form_.focusTracker()};
  if (observer_) observer_->keyUp(keyCode, shift);
}

void MemoryTextBox::paste(StringView text) {
  if (isEditable()) replaceSelection(text);
}

void MemoryTextBox::mouse(MouseReport report, std::int16_t button, std::int16_t shift, float x,
                          float y) {
  if (!observer_) return;
  const FocusTracker::Hold handler{form_.focusTracker()};
  switch (report) {
    case MouseReport::down: return observer_->mouseDown(button, shift, x, y);
    case MouseReport::move: return observer_->mouseMoved(button, shift, x, y);
    case MouseReport::up: return observer_->mouseUp(button, shift, x, y);
    case MouseReport::click: return observer_->clicked();
    case MouseReport::doubleClick: return observer_->doubleClicked();
  }
}

void MemoryTextBox::applyKey(std::int16_t keyCode) {
  if (!isEditable()) return;
  const auto moveCaret = [&](std::size_t to) {
    start_ = to;
    length_ = 0;
  };
  switch (keyCode) {
    case KeyCodes::left: return moveCaret(start_ - (start_ > 0 ? 1 : 0));
    case KeyCodes::right: return moveCaret(std::min(start_ + length_ + 1, text_.size()));
    case KeyCodes::home: return moveCaret(0);
    case KeyCodes::end: return moveCaret(text_.size());
    case KeyCodes::backspace: return start_ == 0 ? eraseOr(0, 0) : eraseOr(start_ - 1, 1);
    case KeyCodes::deleteKey: return eraseOr(start_, 1);
    default: return;
  }
}

/// Erases the selection or, where there is none, the characters given.
void MemoryTextBox::eraseOr(std::size_t start, std::size_t length) {
  if (length_ == 0) {
    start_ = start;
    length_ = std::min(length, text_.size() - start);
    if (length_ == 0) return;
  }
  replaceSelection(u"");
}

void MemoryTextBox::replaceSelection(StringView text) {
  text_.replace(start_, length_, text);
  start_ += text.size();
  length_ = 0;
  reportChange();
}

void MemoryTextBox::reportChange() {
  const FocusTracker::Hold handler{form_.focusTracker()};
  if (observer_) observer_->changed();
}

}  // namespace keyscout
