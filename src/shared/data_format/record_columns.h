#pragma once

#include "base/text.h"

namespace keyscout {

/// The first line of a catalog download in the format that lookups read: records of an index, a
/// catalog number and a brand in so many columns.
inline constexpr StringView downloadHeader = u"FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]";
/// The beginning that the headers of all formats have in common.
inline constexpr StringView downloadHeaderStart = downloadHeader.substr(0, 8);

/// The columns of a record as that header announces them. In a catalog table the brand goes on to
/// the end of the line.
namespace RecordColumns {
inline constexpr Columns index{1, 10};
inline constexpr Columns number{11, 60};
inline constexpr Columns brand{71, 50};
}  // namespace RecordColumns

}  // namespace keyscout
