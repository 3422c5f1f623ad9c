#pragma once

#include <windows.h>

#include <new>

namespace keyscout {

/// A pointer of which each thread has its own, null at first, in the system's own thread storage:
/// unlike a thread_local it is still there when a library is told that a thread ends, it leaves no
/// destructor behind that would keep the library loaded, and reading it takes no memory.
template <class T>
class ThreadPointer {
 public:
  ThreadPointer() : index_(TlsAlloc()) {
    if (index_ == TLS_OUT_OF_INDEXES) throw std::bad_alloc{};
  }
  ~ThreadPointer() { TlsFree(index_); }
  ThreadPointer(const ThreadPointer&) = delete;
  ThreadPointer& operator=(const ThreadPointer&) = delete;

  T* get() const { return static_cast<T*>(TlsGetValue(index_)); }
  /// Fails with std::bad_alloc where the system has no room for it, which it has for null.
  void set(T* pointer) const {
    if (!TlsSetValue(index_, pointer) && pointer) throw std::bad_alloc{};
  }

 private:
  DWORD index_;
};

}  // namespace keyscout
