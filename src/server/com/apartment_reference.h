#pragma once

#include "server/com/object.h"

namespace keyscout {

/// A reference to a host's object that is given back when COM ends on the thread that took it,
/// while the object can still be called. To be used on that thread alone.
class ApartmentReference {
 public:
  explicit ApartmentReference(ComPtr<IDispatch> object);
  /// Gives nothing back where the thread itself ends: COM has ended there by then, or is about to.
  ~ApartmentReference();
  ApartmentReference(const ApartmentReference&) = delete;
  ApartmentReference& operator=(const ApartmentReference&) = delete;

  /// Null once COM has ended on the thread.
  const ComPtr<IDispatch>& object() const { return keeper_->object; }

  /// While one of these lives the calling thread is ending.
  struct ThreadEnd {
    ThreadEnd() noexcept;
    ~ThreadEnd();
    ThreadEnd(const ThreadEnd&) = delete;
    ThreadEnd& operator=(const ThreadEnd&) = delete;
  };

 private:
  /// Is told by COM before it ends.
  struct Keeper final : Object<IInitializeSpy> {
    explicit Keeper(ComPtr<IDispatch> kept) : object(std::move(kept)) {}
    HRESULT STDMETHODCALLTYPE PreInitialize(DWORD, DWORD) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE PostInitialize(HRESULT result, DWORD, DWORD) override {
      return result;
    }
    HRESULT STDMETHODCALLTYPE PreUninitialize(DWORD initializations) override {
      if (initializations == 1) object = nullptr;
      return S_OK;
    }
    HRESULT STDMETHODCALLTYPE PostUninitialize(DWORD) override { return S_OK; }

    ComPtr<IDispatch> object;
  };

  ComPtr<Keeper> keeper_;
  ULARGE_INTEGER registration_{};
};

}  // namespace keyscout
