#include "platform/focus_tracker.h"

#include <utility>

namespace keyscout {

void FocusTracker::release() noexcept {
  // Delivered while still held, so that moves made by these handlers queue up behind.
  if (depth_ == 1) deliver();
  if (depth_ > 0) --depth_;
}

void FocusTracker::inputArrives() noexcept {
  if (depth_ == 0) return;
  depth_ = 1;
  deliver();
  // The handlers that run end after all that begins from now on, and find nothing left to release.
  depth_ = 0;
}

void FocusTracker::deliver() noexcept {
  while (!waiting_.empty()) {
    const Report report = waiting_.front();
    waiting_.pop_front();
    (report.control->*report.deliver)();
  }
}

void FocusTracker::moveTo(FocusObserver& control, FocusPlace place) { change({&control, place}); }

void FocusTracker::leave() { change({}); }

void FocusTracker::change(Focus next) {
  if (next == focus_) return;
  const Hold hold{*this};
  const Focus previous = std::exchange(focus_, next);
  const bool leaves = previous.control != next.control;

  if (previous.control && previous.place == FocusPlace::textBox)
    waiting_.push_back({previous.control, &FocusObserver::textBoxLostFocus});
  if (previous.control && previous.place == FocusPlace::surface)
    waiting_.push_back({previous.control, &FocusObserver::surfaceLostFocus});
  if (previous.control && leaves) waiting_.push_back({previous.control, &FocusObserver::focusLeft});
  if (next.control && next.place == FocusPlace::textBox)
    waiting_.push_back({next.control, &FocusObserver::textBoxGotFocus});
}

void FocusTracker::listRemoved(FocusObserver& control) {
  if (!has(control, FocusPlace::list)) return;
  const Hold hold{*this};
  focus_ = {};
  waiting_.push_back({&control, &FocusObserver::focusLeft});
}

void FocusTracker::forget(FocusObserver& control) {
  if (focus_.control == &control) focus_ = {};
  std::erase_if(waiting_, [&](const Report& report) { return report.control == &control; });
}

}  // namespace keyscout
