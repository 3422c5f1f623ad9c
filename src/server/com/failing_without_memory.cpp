#include "server/com/failing_without_memory.h"

#include <windows.h>

#include <atomic>
#include <cstdlib>

namespace {

// The thread whose next block of memory is refused.
std::atomic<DWORD> refusedThread{0};

bool isRefused() {
  if (refusedThread.load(std::memory_order_relaxed) == 0) return false;
  DWORD current = GetCurrentThreadId();
  return refusedThread.compare_exchange_strong(current, 0);
}

}  // namespace

// The linker puts these two into the way of every malloc of the library.
extern "C" {
// NOLINTBEGIN(bugprone-reserved-identifier): the linker's names
void* __real_malloc(std::size_t size);
void* __wrap_malloc(std::size_t size);
void* __wrap_malloc(std::size_t size) { return isRefused() ? nullptr : __real_malloc(size); }
// NOLINTEND(bugprone-reserved-identifier)
}

namespace keyscout {
namespace {

void throwAndCatch() noexcept {
  try {
    throw 0;
  } catch (int) {  // NOLINT(bugprone-empty-catch): to have thrown is the purpose
  }
}

}  // namespace

void prepareToFail() noexcept {
  throwAndCatch();  // what each thread needs of its own
  static std::atomic<bool> isProcessReady{false};
  if (isProcessReady.exchange(true)) return;
  // The memory that is set aside for exceptions has a lock, which is made when it is first taken.
  // The exception's own memory is refused, and not that of the lock.
  refusedThread = GetCurrentThreadId();
  throwAndCatch();
}

}  // namespace keyscout
