#pragma once

#include <windows.h>

#include <objbase.h>

#include <bit>
#include <utility>

namespace keyscout {

/// Owns one reference to a COM object, or is null.
template <class T>
class ComPtr {
 public:
  ComPtr() = default;
  ComPtr(std::nullptr_t) {}
  /// Adds a reference of its own.
  explicit ComPtr(T* object) : object_(object) {
    if (object_) object_->AddRef();
  }
  ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPtr() {
    if (object_) object_->Release();
  }

  /// Takes over a reference that the caller owns.
  static ComPtr adopt(T* object) {
    ComPtr result;
    result.object_ = object;
    return result;
  }

  /// `object` as another interface; null where it has none, or is null.
  static ComPtr from(IUnknown* object) {
    void* found = nullptr;
    if (object && FAILED(object->QueryInterface(__uuidof(T), &found))) found = nullptr;
    return adopt(static_cast<T*>(found));
  }

  T* get() const { return object_; }
  T* operator->() const { return object_; }
  T& operator*() const { return *object_; }
  explicit operator bool() const { return object_ != nullptr; }

  /// Gives the reference away.
  T* detach() { return std::exchange(object_, nullptr); }

  /// The place for a callee to put a reference that this object then owns.
  T** put() {
    *this = nullptr;
    return &object_;
  }
  /// The same, for a callee that is told by an identifier which interface to put there.
  void** putAny() { return std::bit_cast<void**>(put()); }

 private:
  T* object_ = nullptr;
};

/// Makes an object with one reference.
template <class T, class... Arguments>
ComPtr<T> makeObject(Arguments&&... arguments) {
  return ComPtr<T>::adopt(new T(std::forward<Arguments>(arguments)...));
}

/// Makes an object of a class that a library serves; `object` is null where that fails.
template <class T>
HRESULT createInstance(REFCLSID id, ComPtr<T>& object) {
  return CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(T), object.putAny());
}

}  // namespace keyscout
