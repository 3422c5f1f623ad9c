#include "platform/thread_slot.h"

namespace keyscout {
namespace {

struct EndOfThread {
  ThreadSlot& slot;

  ~EndOfThread() {
    slot.isOver = true;
    slot.release();
  }
};

}  // namespace

ThreadSlot& ThreadSlot::ofThisThread() {
  // Without a destructor of its own, so that whatever the thread destroys later still finds it.
  thread_local constinit ThreadSlot slot;
  thread_local const EndOfThread end{slot};
  return slot;
}

}  // namespace keyscout
