#pragma once

#include <utility>

namespace keyscout {

/// One object for each thread, made by whoever first needs it and destroyed when the thread ends.
/// How a thread's end is noticed differs from system to system, so `ofThisThread` belongs to them:
/// a library that is loaded and unloaded at run time must not leave a destructor behind.
struct ThreadSlot {
  void* object = nullptr;
  void (*destroy)(void* object) = nullptr;
  /// The thread is at its end: its object is gone, and no other may be made.
  bool isOver = false;

  static ThreadSlot& ofThisThread();

  /// Destroys the object, where there is one.
  void release() {
    if (void* const released = std::exchange(object, nullptr)) destroy(released);
  }
  static void releaseThisThread() { ofThisThread().release(); }
};

/// The calling thread as if the component had not been used on it yet, from this object's making
/// on; and after its end once more. For hosts that serve in turn on one thread: none finds what
/// another left there.
class [[nodiscard]] FreshThreadState {
 public:
  FreshThreadState() { ThreadSlot::releaseThisThread(); }
  ~FreshThreadState() { ThreadSlot::releaseThisThread(); }
  FreshThreadState(const FreshThreadState&) = delete;
  FreshThreadState& operator=(const FreshThreadState&) = delete;
};

}  // namespace keyscout
