#pragma once

#include "server/com/failures.h"
#include "server/com/invocation.h"
#include "server/com/object.h"
#include "server/com/type_library.h"

namespace keyscout {

/// A class of objects with a dual interface: everything about it that its type information tells.
/// `Class` names its `classId` and, where it raises events, their `eventsId` (else IID_NULL).
template <class Class, class Dual, class... Others>
class Automation : public Object<Dual, ISupportErrorInfo, IProvideClassInfo2, Others...> {
 public:
  // IDispatch
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    return member([&] { target(count) = 1; });
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** result) override {
    return member([&] {
      target(result) = nullptr;
      if (index != 0) throw ComFailure{DISP_E_BADINDEX};
      *result = ComPtr<ITypeInfo>{&typeInfo()}.detach();
    });
  }

  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID interfaceId, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override {
    return member([&] {
      requireNoInterface(interfaceId);
      if (!names || !ids) throw ComFailure{E_POINTER};
      require(typeInfo().GetIDsOfNames(names, count, ids));
    });
  }

  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID interfaceId, LCID, WORD flags,
                                   DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                   UINT* wrongArgument) override {
    HRESULT answer = S_OK;
    const HRESULT failure = member([&] {
      requireNoInterface(interfaceId);
      const ComPtr<Dual> alive{this};
      Invocation invocation{typeInfo(), id, flags, target(arguments)};
      answer = invocation.run(static_cast<Dual*>(this), result, exception, wrongArgument);
    });
    return FAILED(failure) ? failure : answer;
  }

  // ISupportErrorInfo
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override {
    return id == __uuidof(Dual) ? S_OK : S_FALSE;
  }

  // IProvideClassInfo2
  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** result) override {
    return member([&] {
      target(result) = nullptr;
      *result = loadTypeInfo(Class::classId).detach();
    });
  }

  HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* result) override {
    return member([&] {
      target(result) = IID_NULL;
      const bool known = kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID && Class::eventsId != IID_NULL;
      if (!known) throw ComFailure{E_INVALIDARG};
      *result = Class::eventsId;
    });
  }

 protected:
  /// The body of a member of the dual interface.
  template <class Body>
  HRESULT member(Body&& body) noexcept {
    return asComResult(__uuidof(Dual), body);
  }

 private:
  /// IDispatch has a parameter for an interface that no caller may name.
  static void requireNoInterface(REFIID id) {
    if (id != IID_NULL) throw ComFailure{DISP_E_UNKNOWNINTERFACE};
  }

  ITypeInfo& typeInfo() {
    if (!typeInfo_) typeInfo_ = loadTypeInfo(__uuidof(Dual));
    return *typeInfo_;
  }

  ComPtr<ITypeInfo> typeInfo_;
};

}  // namespace keyscout
