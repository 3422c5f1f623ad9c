#include "server/host_brands.h"

#include "base/error.h"

namespace keyscout {
namespace {

[[noreturn]] void mismatch() { throw platformFailure(PlatformError::typeMismatch, u"BrandList"); }

}  // namespace

HostBrandCollection::HostBrandCollection(ComPtr<IDispatch> object)
    : object_(std::move(object), u"BrandList"),
      countId_(object_.member(u"Count")),
      itemId_(object_.member(u"Item")) {}

std::size_t HostBrandCollection::count() const {
  OwnedVariant result;
  OwnedVariant number;
  if (!object_.read(countId_, nullptr, result) ||
      FAILED(VariantChangeType(&number, &result, 0, VT_I4)))
    mismatch();
  return number.lVal > 0 ? static_cast<std::size_t>(number.lVal) : 0;
}

std::shared_ptr<const BrandItem> HostBrandCollection::item(StringView brand) const {
  OwnedVariant key;
  key.bstrVal = newBstr(brand);
  key.vt = VT_BSTR;
  OwnedVariant result;
  if (!object_.read(itemId_, &key, result))
    throw platformFailure(PlatformError::invalidArgument, u"BrandList");
  OwnedVariant plain;
  const bool isObject = SUCCEEDED(VariantCopyInd(&plain, &result)) &&
                        (plain.vt == VT_DISPATCH || plain.vt == VT_UNKNOWN) && plain.punkVal;
  if (!isObject) mismatch();
  return std::make_shared<BrandItem>();
}

}  // namespace keyscout
