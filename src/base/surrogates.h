#pragma once

#include <cstdint>

namespace keyscout {

// A character beyond the first 65536 is a pair of UTF-16 code units, a high surrogate and a low
// one.

constexpr bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

constexpr char32_t pointOfPair(char16_t high, char16_t low) {
  return 0x10000 + ((char32_t{high} - 0xD800) << 10) + (char32_t{low} - 0xDC00);
}

/// The two units of a code point from 0x10000 on.
constexpr char16_t highSurrogate(char32_t point) {
  return static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10));
}
constexpr char16_t lowSurrogate(char32_t point) {
  return static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF));
}

}  // namespace keyscout
