#pragma once

#include "base/text.h"

namespace keyscout {

/// The first line of a catalog download in the format that lookups read: records of an index, a
/// catalog number and a brand in so many columns.
inline constexpr StringView currentFormatHeader = u"FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]";

inline constexpr std::size_t indexWidth = 10;
inline constexpr std::size_t numberWidth = 60;
inline constexpr std::size_t brandWidth = 50;

}  // namespace keyscout
