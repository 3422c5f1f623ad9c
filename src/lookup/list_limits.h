#pragma once

#include <cstdint>

/// How many entries a list has.
namespace keyscout::ListLimits {

/// What typing asks for, what a grown text leaves as it is, and what scrolling adds.
inline constexpr std::int16_t page = 9;
/// A list of so many entries takes no more.
inline constexpr std::int16_t maxEntries = 999;
/// Empty entries at the end of the catalog: so many in a list without others, fewer in one with
/// some, so that a drop-down keeps its height; always so many where a table is missing.
inline constexpr std::int16_t fillers = 8;

}  // namespace keyscout::ListLimits
