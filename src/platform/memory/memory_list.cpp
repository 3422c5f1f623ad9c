#include "platform/memory/memory_list.h"

#include <algorithm>

#include "base/error.h"

namespace keyscout {
namespace {

// How far Page Up and Page Down go.
constexpr int entriesInSight = 7;

[[noreturn]] void refuseEntry() {
  throw platformFailure(PlatformError::invalidArgument, u"DropDownList");
}

}  // namespace

std::int16_t MemoryList::entryCount() const {
  form_.onCall("entryCount");
  return static_cast<std::int16_t>(entries_.size());
}

void MemoryList::append(StringView entry) {
  form_.onCall("append");
  entries_.emplace_back(entry);
}

void MemoryList::removeFirst() {
  form_.onCall("removeFirst");
  if (entries_.empty()) refuseEntry();
  entries_.pop_front();
  if (selected_ >= 0) --selected_;
}

void MemoryList::clear() {
  form_.onCall("clear");
  entries_.clear();
  selected_ = -1;
}

String MemoryList::entryText(std::int16_t entry) const {
  form_.onCall("entryText");
  if (!isEntry(entry)) refuseEntry();
  return entries_[static_cast<std::size_t>(entry)];
}

void MemoryList::select(std::int16_t entry) {
  form_.onCall("select");
  if (entry == 0 && entries_.empty()) return;
  if (entry != -1 && !isEntry(entry)) refuseEntry();
  selected_ = entry;
  reportClick();
}

void MemoryList::setFocus() {
  form_.onCall("setFocus");
  form_.focusTracker().moveTo(surface_, FocusPlace::list);
}

void MemoryList::showDropDown(bool show) {
  form_.onCall("showDropDown");
  const bool closes = isDropped_ && !show;
  isDropped_ = show;
  if (closes && selected_ >= 0) reportClick();
}

void MemoryList::setRedraw(bool redraw) {
  form_.onCall("setRedraw");
  redraws_ = redraw;
}

bool MemoryList::keyDown(std::int16_t keyCode, std::int16_t shift) {
  {
    const FocusTracker::Hold handler{form_.focusTracker()};
    observer_.keyDown(keyCode, shift);
  }
  if (keyCode == 0) return false;
  if (shift == 0) moveSelection(keyCode);
  return true;
}

void MemoryList::keyPress(char16_t character) {
  if (character == u'\r') return;
  const FocusTracker::Hold handler{form_.focusTracker()};
  observer_.editChanged();
}

void MemoryList::keyUp(std::int16_t keyCode, std::int16_t shift) {
  const FocusTracker::Hold handler{form_.focusTracker()};
  observer_.keyUp(keyCode, shift);
}

void MemoryList::choose(std::int16_t entry) {
  selected_ = entry;
  isDropped_ = false;
  reportClick();
}

void MemoryList::moveSelection(std::int16_t keyCode) {
  const int last = static_cast<int>(entries_.size()) - 1;
  if (last < 0) return;
  const bool nothingSelected = selected_ < 0;
  const auto target = [&]() -> int {
    switch (keyCode) {
      case KeyCodes::down: return nothingSelected ? 0 : selected_ + 1;
      case KeyCodes::pageDown: return nothingSelected ? 0 : selected_ + entriesInSight;
      case KeyCodes::up: return selected_ - 1;
      case KeyCodes::pageUp: return selected_ - entriesInSight;
      case KeyCodes::home: return 0;
      case KeyCodes::end: return last;
      default: return selected_;
    }
  };
  const bool startsSelection = keyCode == KeyCodes::down || keyCode == KeyCodes::pageDown;
  if (nothingSelected && !startsSelection) return;
  const auto next = static_cast<std::int16_t>(std::clamp(target(), 0, last));
  if (next == selected_) return;
  selected_ = next;
  reportClick();
}

void MemoryList::reportClick() {
  const FocusTracker::Hold handler{form_.focusTracker()};
  observer_.clicked();
}

}  // namespace keyscout
