#include "platform/memory/memory_surface.h"

#include "base/error.h"

namespace keyscout {

void MemorySurface::setObservers(SurfaceObserver* surface, TextBoxObserver* textBox) {
  observer_ = surface;
  textBox_.setObserver(textBox);
}

DropDownList& MemorySurface::addDropDownList(StringView name, DropDownListObserver& observer) {
  form_.onCall("addDropDownList");
  FocusObserver& focusObserver = *this;
  list_ = std::make_shared<MemoryList>(form_, focusObserver, observer);
  listName_ = name;
  return *list_;
}

void MemorySurface::removeChild(StringView name) {
  form_.onCall("removeChild");
  if (!list_ || name != listName_)
    throw platformFailure(PlatformError::invalidArgument, u"ControlSurface");
  list_.reset();
  form_.focusTracker().listRemoved(*this);
}

std::optional<PlayableSurface::ListView> MemorySurface::listView() const {
  if (!list_) return std::nullopt;
  const auto& entries = list_->entries();
  return ListView{{entries.begin(), entries.end()},
                  list_->selectedIndex(),
                  list_->isDropped(),
                  list_->redraws()};
}

std::optional<FocusPlace> MemorySurface::focusPlace() const {
  const FocusTracker::Focus focus = form_.focusTracker().focus();
  if (focus.control != this) return std::nullopt;
  return focus.place;
}

void MemorySurface::resize(float width) {
  width_ = width;
  const FocusTracker::Hold handler{form_.focusTracker()};
  if (observer_) observer_->resized();
}

void MemorySurface::click(std::int16_t entry) {
  form_.focusTracker().inputArrives();
  form_.focusTracker().moveTo(*this, FocusPlace::list);
  // The reports of that move may have removed the list.
  if (const auto list = list_) list->choose(entry);
}

void MemorySurface::mouse(MouseReport report, std::int16_t button, std::int16_t shift, float x,
                          float y) {
  form_.focusTracker().inputArrives();
  textBox_.mouse(report, button, shift, x, y);
}

// A host may move the focus from inside a handler of the list, which can remove it: it lives on
// until its own work is done.
bool MemorySurface::keyDown(FocusPlace place, std::int16_t keyCode, std::int16_t shift) {
  switch (place) {
    case FocusPlace::textBox: return textBox_.keyDown(keyCode, shift);
    case FocusPlace::list: {
      const auto list = list_;
      return list->keyDown(keyCode, shift);
    }
    case FocusPlace::surface: return true;
  }
  return true;
}

void MemorySurface::keyPress(FocusPlace place, char16_t character) {
  if (const auto list = list_; place == FocusPlace::list) list->keyPress(character);
  // Typing in the list gives the focus back to the text, where the character belongs.
  if (focusPlace() == FocusPlace::textBox) textBox_.keyPress(character);
}

void MemorySurface::keyUp(FocusPlace place, std::int16_t keyCode, std::int16_t shift) {
  if (place == FocusPlace::textBox) textBox_.keyUp(keyCode, shift);
  if (const auto list = list_; place == FocusPlace::list) list->keyUp(keyCode, shift);
}

void MemorySurface::textBoxGotFocus() noexcept {
  if (textBox_.observer_) textBox_.observer_->gotFocus();
}

void MemorySurface::textBoxLostFocus() noexcept {
  if (textBox_.observer_) textBox_.observer_->lostFocus();
}

void MemorySurface::surfaceLostFocus() noexcept {
  if (observer_) observer_->lostFocus();
}

void MemorySurface::focusLeft() noexcept {
  if (observer_) observer_->focusLeft();
}

}  // namespace keyscout
