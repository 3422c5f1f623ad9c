#include "server/brand_objects.h"

#include "server/com/enumerator.h"

namespace keyscout {
namespace {

using Item = std::shared_ptr<OwnedVariant>;

struct ItemCopier {
  using Kept = Item;
  static void copy(const Kept& item, VARIANT& given) {
    VariantInit(&given);
    require(VariantCopy(&given, item.get()));
  }
};
using ItemEnumerator = Enumerator<IEnumVARIANT, VARIANT, ItemCopier>;

Item itemFor(StringView brand, const VARIANT& given) {
  auto item = std::make_shared<OwnedVariant>();
  const bool isMissing =
      given.vt == VT_EMPTY || (given.vt == VT_ERROR && given.scode == DISP_E_PARAMNOTFOUND);
  if (isMissing) {
    item->pdispVal = makeObject<BrandItemObject>(brand).detach();
    item->vt = VT_DISPATCH;
  } else {
    require(VariantCopyInd(item.get(), const_cast<VARIANT*>(&given)));
  }
  return item;
}

}  // namespace

HRESULT BrandListObject::get_Item(VARIANT brand, VARIANT* result) {
  return member([&] {
    VariantInit(&target(result));
    OwnedVariant key;
    require(VariantCopyInd(&key, &brand));
    if (key.vt == VT_BSTR) return ItemCopier::copy(items_.item(viewOf(key.bstrVal)), *result);
    OwnedVariant number;
    if (FAILED(VariantChangeType(&number, &key, 0, VT_I4)))
      throw platformFailure(PlatformError::typeMismatch, u"BrandList");
    const auto position = static_cast<std::size_t>(number.lVal < 0 ? 0 : number.lVal);
    ItemCopier::copy(items_.item(position), *result);
  });
}

HRESULT BrandListObject::get_Count(LONG* result) {
  return member([&] { target(result) = static_cast<LONG>(items_.count()); });
}

HRESULT BrandListObject::Add(BSTR brand, VARIANT item) {
  return member([&] { items_.add(itemFor(viewOf(brand), item), viewOf(brand)); });
}

HRESULT BrandListObject::Remove(BSTR brand) {
  return member([&] { items_.remove(viewOf(brand)); });
}

HRESULT BrandListObject::get__NewEnum(IUnknown** result) {
  return member([&] {
    target(result) = nullptr;
    ItemEnumerator::Items items;
    for (const auto& entry : items_) items.push_back(entry.item);
    *result = makeObject<ItemEnumerator>(std::move(items)).detach();
  });
}

}  // namespace keyscout
