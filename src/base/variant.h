#pragma once

#include <cstdint>
#include <variant>

#include "base/text.h"

namespace keyscout {

/// A value of a type that the host chose; std::monostate stands for no value at all.
using Variant = std::variant<std::monostate, std::int32_t, double, String>;

/// `value` as a 32-bit integer; a fraction is rounded to the nearest, halves to the even one.
/// Fails with type mismatch (13) where the value does not convert.
std::int32_t toInt32(const Variant& value);

}  // namespace keyscout
