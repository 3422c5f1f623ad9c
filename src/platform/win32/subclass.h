#pragma once

#include <windows.h>

namespace keyscout {

/// Is asked before and after anything runs that a window's owner must not go away under.
class BusyCount {
 public:
  virtual void enter() noexcept = 0;
  /// May destroy the object it is called on.
  virtual void leave() noexcept = 0;

 protected:
  ~BusyCount() = default;
};

/// Busy for as long as it lives.
class Busy {
 public:
  explicit Busy(BusyCount& count) : count_(count) { count_.enter(); }
  ~Busy() { count_.leave(); }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  BusyCount& count_;
};

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
