#pragma once

#include <memory>

#include "platform/brand_list.h"
#include "server/com/com_ptr.h"

namespace keyscout {

/// A host's object with the members `Count` and `Item(key)` as a collection of brands.
class HostBrandCollection final : public BrandCollection {
 public:
  /// Fails with type mismatch (13) where `object` lacks one of the two.
  explicit HostBrandCollection(ComPtr<IDispatch> object);
  ~HostBrandCollection() override;

  const ComPtr<IDispatch>& object() const { return object_; }

  std::size_t count() const override;
  std::shared_ptr<const BrandItem> item(StringView brand) const override;

  /// Called when the library goes, or a thread that may have no COM any more: from now on the
  /// calling thread gives no references back, since what they refer to may be gone already.
  static void abandonReferences() noexcept;

 private:
  ComPtr<IDispatch> object_;
  DISPID countId_ = 0;
  DISPID itemId_ = 0;
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
