#pragma once

#include <cstdint>

#include "base/text.h"

namespace keyscout {

/// `number` in decimal, without leading zeros or blanks.
String decimal(int number);

/// The number that the decimal digits of `text`, with an optional sign before them, stand for.
/// Fails with type mismatch (13) where `text` is anything else, with overflow (6) beyond 32 bits.
std::int32_t parseInt32(StringView text);

}  // namespace keyscout
