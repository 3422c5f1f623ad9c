#pragma once

#include <memory>

#include "platform/brand_list.h"
#include "server/host_object.h"

namespace keyscout {

/// A host's object with the members `Count` and `Item(key)` as a collection of brands.
class HostBrandCollection final : public BrandCollection {
 public:
  /// Fails with type mismatch (13) where `object` lacks one of the two.
  explicit HostBrandCollection(ComPtr<IDispatch> object);

  const ComPtr<IDispatch>& object() const { return object_.get(); }

  std::size_t count() const override;
  std::shared_ptr<const BrandItem> item(StringView brand) const override;

 private:
  HostObject object_;
  DISPID countId_;
  DISPID itemId_;
};

/// A host's object as the list of brands that a control is given.
class HostBrandList final : public BrandList {
 public:
  explicit HostBrandList(ComPtr<IDispatch> object) : object_(std::move(object)) {}

  std::shared_ptr<BrandCollection> keyedCollection() override {
    return std::make_shared<HostBrandCollection>(object_);
  }

 private:
  ComPtr<IDispatch> object_;
};

}  // namespace keyscout
