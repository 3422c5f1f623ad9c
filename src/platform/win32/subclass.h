#pragma once

#include <windows.h>

#include "platform/win32/busy_count.h"

namespace keyscout {

/// Sees the messages of a window of the system before that window's own procedure does.
class Subclass {
 public:
  explicit Subclass(BusyCount& busy) : busy_(busy) {}
  Subclass(const Subclass&) = delete;
  Subclass& operator=(const Subclass&) = delete;

  /// Begins with `window`, which must be detached or destroyed before this object is.
  void attach(HWND window);
  /// Leaves the window to itself, also while a message of it is being worked on.
  void detach();
  /// Null before `attach` and once the window is destroyed.
  HWND window() const { return window_; }

  /// True for windows that are seen by an object of this class.
  static bool isAttached(HWND window);

 protected:
  ~Subclass() = default;

  virtual LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;
  /// The window's own answer; 0 once it is destroyed.
  LRESULT original(UINT message, WPARAM wParam, LPARAM lParam);

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  BusyCount& busy_;
  HWND window_ = nullptr;
  WNDPROC original_ = nullptr;
};

}  // namespace keyscout
