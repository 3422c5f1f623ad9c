#include "platform/thread_slot.h"

namespace keyscout {
namespace {

struct OwningSlot : ThreadSlot {
  ~OwningSlot() {
    if (object) destroy(object);
  }
};

}  // namespace

ThreadSlot& ThreadSlot::ofThisThread() {
  thread_local OwningSlot slot;
  return slot;
}

}  // namespace keyscout
