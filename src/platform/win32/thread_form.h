#pragma once

#include <windows.h>

#include <memory>

#include "platform/focus_tracker.h"

namespace keyscout {

/// What all controls of a thread share: who has the focus. Lives as long as a control refers to it.
class ThreadForm : public std::enable_shared_from_this<ThreadForm> {
 public:
  static std::shared_ptr<ThreadForm> ofThisThread();
  ~ThreadForm();
  ThreadForm(const ThreadForm&) = delete;
  ThreadForm& operator=(const ThreadForm&) = delete;

  FocusTracker& focusTracker() { return tracker_; }
  bool followsFocus() const { return pauses_ == 0; }

  /// While one of these lives, the thread's controls take no notice of a focus that moves, and at
  /// its end the focus is back where it was: a message box is no place of the form.
  class FocusPause {
   public:
    FocusPause();
    ~FocusPause();
    FocusPause(const FocusPause&) = delete;
    FocusPause& operator=(const FocusPause&) = delete;

   private:
    std::shared_ptr<ThreadForm> form_;
    HWND focused_;
  };

 private:
  ThreadForm() = default;

  FocusTracker tracker_;
  int pauses_ = 0;
};

}  // namespace keyscout
