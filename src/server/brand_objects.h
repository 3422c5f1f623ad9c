#pragma once

#include <memory>

#include "base/keyed_collection.h"
#include "keyscout_h.h"
#include "server/com/automation.h"
#include "server/com/values.h"

namespace keyscout {

/// A brand for hosts that have no class of their own for it.
class BrandItemObject final : public Automation<BrandItemObject, _BrandItem> {
 public:
  static constexpr const CLSID& classId = CLSID_BrandItem;
  static constexpr const IID& eventsId = IID_NULL;

  BrandItemObject() = default;
  explicit BrandItemObject(StringView brand) : brand_(brand) {}

  HRESULT STDMETHODCALLTYPE get_Brand(BSTR* result) override {
    return member([&] { target(result) = newBstr(brand_); });
  }
  HRESULT STDMETHODCALLTYPE put_Brand(BSTR value) override {
    return member([&] { brand_ = viewOf(value); });
  }

 private:
  String brand_;
};

/// A list of brands for hosts that have no class of their own for it. What is added without an item
/// gets a BrandItem.
class BrandListObject final : public Automation<BrandListObject, _BrandList> {
 public:
  static constexpr const CLSID& classId = CLSID_BrandList;
  static constexpr const IID& eventsId = IID_NULL;

  /// By a brand in any letter case, or by a number from 1.
  HRESULT STDMETHODCALLTYPE get_Item(VARIANT brand, VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE get_Count(LONG* result) override;
  HRESULT STDMETHODCALLTYPE Add(BSTR brand, VARIANT item) override;
  HRESULT STDMETHODCALLTYPE Remove(BSTR brand) override;
  HRESULT STDMETHODCALLTYPE get__NewEnum(IUnknown** result) override;

 private:
  KeyedCollection<std::shared_ptr<OwnedVariant>> items_;
};

}  // namespace keyscout
