#pragma once

#include <cstddef>
#include <deque>

#include "platform/memory/memory_form.h"
#include "platform/widgets.h"

namespace keyscout {

/// A drop-down combo list in memory.
class MemoryList final : public DropDownList {
 public:
  MemoryList(MemoryForm& form, FocusObserver& surface, DropDownListObserver& observer)
      : form_(form), surface_(surface), observer_(observer) {}

  void setLeft(float) override {}
  void setTop(float) override {}
  void setWidth(float) override {}
  void setTabStop(Boolean) override {}
  void setVisible(Boolean) override {}

  std::int16_t entryCount() const override;
  void append(StringView entry) override;
  void removeFirst() override;
  void clear() override;
  String entryText(std::int16_t entry) const override;
  std::int16_t selectedIndex() const override { return selected_; }
  void select(std::int16_t entry) override;
  void setFocus() override;
  void showDropDown(bool show) override;
  void setRedraw(bool redraw) override;

  bool isDropped() const { return isDropped_; }
  bool redraws() const { return redraws_; }
  const std::deque<String>& entries() const { return entries_; }

  // What a person does to it. `keyDown` tells whether the key goes on to its character.

  bool keyDown(std::int16_t keyCode, std::int16_t shift);
  void keyPress(char16_t character);
  void keyUp(std::int16_t keyCode, std::int16_t shift);
  /// The click on an entry, after the list has got the focus.
  void choose(std::int16_t entry);

 private:
  bool isEntry(std::int16_t entry) const {
    return entry >= 0 && static_cast<std::size_t>(entry) < entries_.size();
  }
  void moveSelection(std::int16_t keyCode);
  void reportClick();

  MemoryForm& form_;
  FocusObserver& surface_;
  DropDownListObserver& observer_;
  std::deque<String> entries_;
  std::int16_t selected_ = -1;
  bool isDropped_ = false;
  bool redraws_ = true;
};

}  // namespace keyscout
