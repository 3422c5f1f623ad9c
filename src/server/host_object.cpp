#include "server/host_object.h"

#include <dispex.h>

#include "base/error.h"
#include "platform/win32/wide.h"

namespace keyscout {
namespace {

/// What a host's object failed with. A platform number comes as the result that stands for it.
Error errorOf(HRESULT result, EXCEPINFO& exception) {
  if (result == DISP_E_EXCEPTION && exception.pfnDeferredFillIn)
    exception.pfnDeferredFillIn(&exception);
  std::int32_t number = result;
  if (result == DISP_E_EXCEPTION) number = exception.scode ? exception.scode : exception.wCode;
  if (HRESULT_FACILITY(number) == FACILITY_CONTROL) number = HRESULT_CODE(number);
  Error error{number, viewOf(exception.bstrSource), viewOf(exception.bstrDescription)};
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  return error;
}

}  // namespace

ComPtr<IDispatch> HostObject::required() const {
  if (!get()) throw platformFailure(PlatformError::objectNotSet, name_);
  return get();
}

/// Looked for the extended way first: objects of a script's own classes answer only to that on some
/// systems.
DISPID HostObject::member(StringView name) const {
  DISPID id = 0;
  const Bstr text{name};
  const ComPtr<IDispatch> object = required();
  const auto extended = ComPtr<IDispatchEx>::from(object.get());
  if (extended && SUCCEEDED(extended->GetDispID(text.get(), fdexNameCaseInsensitive, &id)))
    return id;
  LPOLESTR names = text.get();
  if (FAILED(object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id)))
    throw platformFailure(PlatformError::typeMismatch, name_);
  return id;
}

bool HostObject::read(DISPID id, VARIANT* argument, VARIANT& result) const {
  const ComPtr<IDispatch> object = required();
  DISPPARAMS arguments{argument, nullptr, argument ? 1u : 0u, 0};
  return SUCCEEDED(object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT,
                                  DISPATCH_METHOD | DISPATCH_PROPERTYGET, &arguments, &result,
                                  nullptr, nullptr));
}

void HostObject::call(DISPID id, std::span<VARIANT> arguments) const {
  const ComPtr<IDispatch> object = required();
  DISPPARAMS given{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
  EXCEPINFO exception{};
  const HRESULT result = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &given,
                                        nullptr, &exception, nullptr);
  if (FAILED(result)) throw errorOf(result, exception);
}

HostArguments& HostArguments::add(StringView text) {
  OwnedVariant& value = values_.at(--first_);
  value.bstrVal = newBstr(text);
  value.vt = VT_BSTR;
  given_[first_].vt = VT_BYREF | VT_BSTR;
  given_[first_].pbstrVal = &value.bstrVal;
  return *this;
}

HostArguments& HostArguments::add(std::int32_t number) {
  OwnedVariant& value = values_.at(--first_);
  value.lVal = number;
  value.vt = VT_I4;
  given_[first_].vt = VT_BYREF | VT_I4;
  given_[first_].plVal = &value.lVal;
  return *this;
}

HostArguments& HostArguments::addByValue(StringView text) {
  add(text);
  given_[first_].vt = VT_BSTR;
  given_[first_].bstrVal = values_[first_].bstrVal;
  return *this;
}

}  // namespace keyscout
