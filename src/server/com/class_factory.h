#pragma once

#include "server/com/failing_without_memory.h"
#include "server/com/failures.h"
#include "server/com/object.h"

namespace keyscout {

/// Makes objects of one class.
template <class Class>
class ClassFactory final : public Object<IClassFactory> {
 public:
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** result) override {
    prepareToFail();
    return asComResult(__uuidof(IClassFactory), [&] {
      target(result) = nullptr;
      if (outer) throw ComFailure{CLASS_E_NOAGGREGATION};
      require(makeObject<Class>()->QueryInterface(id, result));
    });
  }

  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    lock ? ModuleUse::lock() : ModuleUse::unlock();
    return S_OK;
  }
};

}  // namespace keyscout
