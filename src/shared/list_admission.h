#pragma once

#include <memory>

#include "base/keyed_collection.h"
#include "base/text.h"
#include "shared/keyscout_module.h"

namespace keyscout {

// Which catalog numbers may enter a list: those that it does not hold yet, of brands that the host
// has authorized.

/// True when `collection` holds an object under `key`, in any letter case. Never fails.
template <class T>
[[nodiscard]] bool collectionHasKey(const KeyedCollection<T>& collection, StringView key) noexcept {
  try {
    return collection.contains(key);
  } catch (...) {
    return false;
  }
}

/// True when a host that gives these brands authorizes all: none, or an empty collection. Fails as
/// the collection does, which the caller must keep: the host may set another while it is asked.
[[nodiscard]] bool authorizeAll(const std::shared_ptr<BrandCollection>& brands);

/// True when catalog numbers of `brand` may enter a list: the host has authorized all brands or
/// this one. Never fails.
[[nodiscard]] bool isAuthorizedBrand(const keyscoutModule& module, StringView brand) noexcept;

}  // namespace keyscout
