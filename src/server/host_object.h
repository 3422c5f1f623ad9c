#pragma once

#include <windows.h>

#include <oleauto.h>

#include <array>
#include <span>

#include "base/text.h"
#include "server/com/apartment_reference.h"
#include "server/com/values.h"

namespace keyscout {

/// An object of the host's, called by the names of its members. A call may well let go of the
/// `HostObject` that makes it.
class HostObject {
 public:
  /// `name` is the source of the failures of `member`; a literal.
  HostObject(ComPtr<IDispatch> object, StringView name)
      : reference_(std::move(object)), name_(name) {}

  /// Null once COM has ended on the thread. From then on no member can be called, so that of a list
  /// of brands none is authorized, rather than all.
  const ComPtr<IDispatch>& get() const { return reference_.object(); }

  /// The number of a member. Fails with type mismatch (13) where there is none.
  DISPID member(StringView name) const;
  /// Reads a property, with the one argument where there is one. False where that fails.
  bool read(DISPID id, VARIANT* argument, VARIANT& result) const;
  /// Calls a method; the arguments stand in the order of calls, last one first. Fails with the
  /// number, source and sentence that the host fails with.
  void call(DISPID id, std::span<VARIANT> arguments) const;

 private:
  /// Fails with object not set (91) where the object is gone.
  ComPtr<IDispatch> required() const;

  ApartmentReference reference_;
  StringView name_;
};

/// The arguments of a call, given first one first.
class HostArguments {
 public:
  /// By reference: the callee may change them, which nobody looks at.
  HostArguments& add(StringView text);
  HostArguments& add(std::int32_t number);
  HostArguments& addByValue(StringView text);

  /// Last one first.
  std::span<VARIANT> inOrderOfCalls() { return std::span{given_}.subspan(first_); }

 private:
  static constexpr std::size_t room = 6;

  std::array<OwnedVariant, room> values_;
  std::array<VARIANT, room> given_{};
  std::size_t first_ = room;
};

}  // namespace keyscout
