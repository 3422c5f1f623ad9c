#include "server/host_brands.h"

#include <dispex.h>

#include <atomic>

#include "base/error.h"
#include "server/com/values.h"

namespace keyscout {
namespace {

// The loader ends one thread at a time.
std::atomic<DWORD> endingThread{0};

[[noreturn]] void mismatch() { throw platformFailure(PlatformError::typeMismatch, u"BrandList"); }

/// Looked for the extended way first: objects of a script's own classes answer only to that on some
/// systems.
DISPID memberNamed(IDispatch& object, StringView name) {
  DISPID id = 0;
  const Bstr text{name};
  const auto extended = ComPtr<IDispatchEx>::from(&object);
  if (extended && SUCCEEDED(extended->GetDispID(text.get(), fdexNameCaseInsensitive, &id)))
    return id;
  LPOLESTR names = text.get();
  if (FAILED(object.GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id))) mismatch();
  return id;
}

/// Reads a member, with the one argument where there is one. False where that fails.
bool read(IDispatch& object, DISPID id, VARIANT* argument, VARIANT& result) {
  DISPPARAMS arguments{argument, nullptr, argument ? 1u : 0u, 0};
  return SUCCEEDED(object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT,
                                 DISPATCH_METHOD | DISPATCH_PROPERTYGET, &arguments, &result,
                                 nullptr, nullptr));
}

}  // namespace

HostBrandCollection::HostBrandCollection(ComPtr<IDispatch> object) : object_(std::move(object)) {
  countId_ = memberNamed(*object_, u"Count");
  itemId_ = memberNamed(*object_, u"Item");
}

HostBrandCollection::~HostBrandCollection() {
  if (endingThread == GetCurrentThreadId()) object_.detach();
}

void HostBrandCollection::abandonReferences() noexcept { endingThread = GetCurrentThreadId(); }

std::size_t HostBrandCollection::count() const {
  OwnedVariant result;
  OwnedVariant number;
  if (!read(*object_, countId_, nullptr, result) ||
      FAILED(VariantChangeType(&number, &result, 0, VT_I4)))
    mismatch();
  return number.lVal > 0 ? static_cast<std::size_t>(number.lVal) : 0;
}

std::shared_ptr<const BrandItem> HostBrandCollection::item(StringView brand) const {
  OwnedVariant key;
  key.bstrVal = newBstr(brand);
  key.vt = VT_BSTR;
  OwnedVariant result;
  if (!read(*object_, itemId_, &key, result))
    throw platformFailure(PlatformError::invalidArgument, u"BrandList");
  OwnedVariant plain;
  const bool isObject = SUCCEEDED(VariantCopyInd(&plain, &result)) &&
                        (plain.vt == VT_DISPATCH || plain.vt == VT_UNKNOWN) && plain.punkVal;
  if (!isObject) mismatch();
  return std::make_shared<BrandItem>();
}

}  // namespace keyscout
