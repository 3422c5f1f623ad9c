#include "platform/win32/thread_slot.h"

#include <windows.h>

#include <new>

#include "platform/thread_slot.h"

namespace keyscout {
namespace {

/// The system's own thread storage: unlike a thread_local it is still there when a library is told
/// that a thread ends, and it leaves no destructor behind that would keep the library loaded.
class SlotIndex {
 public:
  SlotIndex() : index_(TlsAlloc()) {
    if (index_ == TLS_OUT_OF_INDEXES) throw std::bad_alloc{};
  }
  ~SlotIndex() { TlsFree(index_); }
  SlotIndex(const SlotIndex&) = delete;
  SlotIndex& operator=(const SlotIndex&) = delete;

  ThreadSlot* slot() const { return static_cast<ThreadSlot*>(TlsGetValue(index_)); }
  void setSlot(ThreadSlot* slot) const { TlsSetValue(index_, slot); }

 private:
  DWORD index_;
};

const SlotIndex slotIndex;

}  // namespace

ThreadSlot& ThreadSlot::ofThisThread() {
  if (!slotIndex.slot()) slotIndex.setSlot(new ThreadSlot);
  return *slotIndex.slot();
}

void freeThreadSlot() noexcept {
  ThreadSlot* const slot = slotIndex.slot();
  if (!slot) return;
  if (slot->object) slot->destroy(slot->object);
  slotIndex.setSlot(nullptr);
  delete slot;
}

}  // namespace keyscout
