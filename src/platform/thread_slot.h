#pragma once

namespace keyscout {

/// One object for each thread, made by whoever first needs it and destroyed when the thread ends.
/// How a thread's end is noticed differs from system to system, so `ofThisThread` belongs to them:
/// a library that is loaded and unloaded at run time must not leave a destructor behind.
struct ThreadSlot {
  void* object = nullptr;
  void (*destroy)(void* object) = nullptr;

  static ThreadSlot& ofThisThread();

  /// Destroys the calling thread's object, where there is one.
  static void releaseThisThread() {
    ThreadSlot& slot = ofThisThread();
    if (slot.object) slot.destroy(slot.object);
    slot = {};
  }
};

}  // namespace keyscout
