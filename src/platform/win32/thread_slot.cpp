#include "platform/win32/thread_slot.h"

#include <atomic>
#include <bit>
#include <memory>

#include "platform/thread_slot.h"
#include "platform/win32/instance.h"
#include "platform/win32/thread_pointer.h"

namespace keyscout {
namespace {

const ThreadPointer<ThreadSlot> currentSlot;
std::atomic<int> slots{0};

// What a thread keeps stays until that thread ends, also where COM has let go of the library by
// then: each slot holds the library as loading it does.

void holdLibrary() {
  HMODULE library = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                     std::bit_cast<const wchar_t*>(&holdLibrary), &library);
}

/// The last hold must not be given up by the library's own code, which would be gone before it has
/// returned: a thread that runs nothing but the system's function does it.
void letLibraryGo() noexcept {
  const auto run = std::bit_cast<LPTHREAD_START_ROUTINE>(&FreeLibrary);
  if (const HANDLE thread = CreateThread(nullptr, 0, run, thisInstance(), 0, nullptr))
    CloseHandle(thread);
}

}  // namespace

ThreadSlot& ThreadSlot::ofThisThread() {
  if (ThreadSlot* const slot = currentSlot.get()) return *slot;
  auto slot = std::make_unique<ThreadSlot>();
  currentSlot.set(slot.get());
  holdLibrary();
  ++slots;
  return *slot.release();
}

void freeThreadSlot() noexcept {
  const std::unique_ptr<ThreadSlot> slot{currentSlot.get()};
  if (!slot) return;
  slot->isOver = true;
  slot->release();
  currentSlot.set(nullptr);
  --slots;
  letLibraryGo();
}

bool isAnyThreadSlot() noexcept { return slots != 0; }

}  // namespace keyscout
