#pragma once

#include <cstddef>
#include <list>
#include <optional>
#include <unordered_map>
#include <utility>

#include "base/error.h"
#include "base/letter_case.h"

namespace keyscout {

/// Items in the order in which they were added, each with an optional key. Keys compare without
/// regard to letter case. Adding, finding and removing by key take constant time.
template <class T>
class KeyedCollection {
 public:
  struct Entry {
    std::optional<String> key;
    T item;
  };

  KeyedCollection() = default;
  KeyedCollection(KeyedCollection&&) noexcept = default;
  KeyedCollection& operator=(KeyedCollection&&) noexcept = default;

  std::size_t count() const { return entries_.size(); }

  /// Fails with key already present (457) and adds nothing where the key is taken.
  void add(T item, StringView key) {
    const auto [slot, added] = byKey_.try_emplace(upperCase(key));
    if (!added) throw platformFailure(PlatformError::keyAlreadyPresent, u"KeyedCollection");
    try {
      slot->second = entries_.insert(entries_.end(), Entry{String{key}, std::move(item)});
    } catch (...) {
      byKey_.erase(slot);
      throw;
    }
  }
  void add(T item) { entries_.push_back(Entry{std::nullopt, std::move(item)}); }

  bool contains(StringView key) const { return byKey_.contains(upperCase(key)); }

  /// The item under `key`; fails with invalid argument (5) where there is none.
  const T& item(StringView key) const { return find(key)->second->item; }

  /// The item at the 1-based `position`; fails with subscript out of range (9) beyond the ends.
  const T& item(std::size_t position) const {
    if (position < 1 || position > count())
      throw platformFailure(PlatformError::subscriptOutOfRange, u"KeyedCollection");
    return std::next(entries_.begin(), static_cast<std::ptrdiff_t>(position - 1))->item;
  }

  /// Removes the item under `key`; fails with invalid argument (5) where there is none.
  void remove(StringView key) {
    const auto found = find(key);
    entries_.erase(found->second);
    byKey_.erase(found);
  }

  auto begin() const { return entries_.begin(); }
  auto end() const { return entries_.end(); }

 private:
  using Entries = std::list<Entry>;
  using Index = std::unordered_map<String, typename Entries::iterator>;

  typename Index::const_iterator find(StringView key) const {
    const auto found = byKey_.find(upperCase(key));
    if (found == byKey_.end())
      throw platformFailure(PlatformError::invalidArgument, u"KeyedCollection");
    return found;
  }

  Entries entries_;
  Index byKey_;
};

}  // namespace keyscout
