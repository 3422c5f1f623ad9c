#pragma once

#include <windows.h>

#include <oleauto.h>

#include <bit>
#include <new>
#include <utility>

#include "base/boolean.h"
#include "base/text.h"

namespace keyscout {

/// The text of a BSTR; null is the empty one.
inline StringView viewOf(BSTR text) {
  return {std::bit_cast<const char16_t*>(text), text ? SysStringLen(text) : 0u};
}

/// A new BSTR, which the caller owns.
inline BSTR newBstr(StringView text) {
  const BSTR result =
      SysAllocStringLen(std::bit_cast<const OLECHAR*>(text.data()), static_cast<UINT>(text.size()));
  if (!result) throw std::bad_alloc{};
  return result;
}

/// Owns a BSTR; at first the null one.
class Bstr {
 public:
  Bstr() = default;
  explicit Bstr(StringView text) : text_(newBstr(text)) {}
  ~Bstr() { SysFreeString(text_); }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;

  BSTR get() const { return text_; }
  /// The place where a callee may replace the text.
  BSTR* address() { return &text_; }

 private:
  BSTR text_ = nullptr;
};

inline VARIANT_BOOL toVariantBool(Boolean value) { return value.number(); }
inline Boolean fromVariantBool(VARIANT_BOOL value) { return Boolean::stored(value); }

/// A VARIANT that owns what is in it.
class OwnedVariant : public VARIANT {
 public:
  OwnedVariant() { VariantInit(this); }
  ~OwnedVariant() { VariantClear(this); }
  OwnedVariant(const OwnedVariant&) = delete;
  OwnedVariant& operator=(const OwnedVariant&) = delete;
};

}  // namespace keyscout
