#include "platform/focus_tracker.h"

#include <array>

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
  const Focus previous = focus_;
  const bool leaves = previous.control != next.control;

  std::array<Report, 3> reports{};
  std::size_t count = 0;
  if (previous.control && previous.place == FocusPlace::textBox)
    reports[count++] = {previous.control, &FocusObserver::textBoxLostFocus};
  if (previous.control && previous.place == FocusPlace::surface)
    reports[count++] = {previous.control, &FocusObserver::surfaceLostFocus};
  if (previous.control && leaves) reports[count++] = {previous.control, &FocusObserver::focusLeft};
  if (next.control && next.place == FocusPlace::textBox)
    reports[count++] = {next.control, &FocusObserver::textBoxGotFocus};
  // All of them or, where memory does not allow that, none and no move: the move can be told again.
  waiting_.insert(waiting_.end(), reports.data(), reports.data() + count);
  focus_ = next;
}

void FocusTracker::listRemoved(FocusObserver& control) {
  if (!has(control, FocusPlace::list)) return;
  const Hold hold{*this};
  waiting_.push_back({&control, &FocusObserver::focusLeft});
  focus_ = {};
}

void FocusTracker::forget(FocusObserver& control) {
  if (focus_.control == &control) focus_ = {};
  std::erase_if(waiting_, [&](const Report& report) { return report.control == &control; });
}

}  // namespace keyscout
