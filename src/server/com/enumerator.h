#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include "server/com/failures.h"
#include "server/com/object.h"

namespace keyscout {

/// Enumerates a list of items as it was at the start. `Copier` says how an item is kept and given
/// out: `Kept`, and `copy(const Kept&, Given&)`.
template <class Interface, class Given, class Copier>
class Enumerator final : public Object<Interface> {
 public:
  using Items = std::vector<typename Copier::Kept>;
  explicit Enumerator(Items items, std::size_t next = 0) : items_(std::move(items)), next_(next) {}

  HRESULT STDMETHODCALLTYPE Next(ULONG count, Given* items, ULONG* fetched) override {
    if (!items || (count != 1 && !fetched)) return E_POINTER;
    const auto given = static_cast<ULONG>(std::min<std::size_t>(count, items_.size() - next_));
    const HRESULT failure = asComResult(__uuidof(Interface), [&] {
      for (ULONG i = 0; i < given; ++i) Copier::copy(items_[next_ + i], items[i]);
    });
    if (FAILED(failure)) return failure;
    next_ += given;
    if (fetched) *fetched = given;
    return given == count ? S_OK : S_FALSE;
  }

  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    const auto skipped = std::min<std::size_t>(count, items_.size() - next_);
    next_ += skipped;
    return skipped == count ? S_OK : S_FALSE;
  }

  HRESULT STDMETHODCALLTYPE Reset() override {
    next_ = 0;
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE Clone(Interface** result) override {
    return asComResult(__uuidof(Interface), [&] {
      target(result) = nullptr;
      *result = makeObject<Enumerator>(items_, next_).detach();
    });
  }

 private:
  Items items_;
  std::size_t next_;
};

}  // namespace keyscout
