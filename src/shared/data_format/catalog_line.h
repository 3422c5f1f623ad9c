#pragma once

#include <cstddef>
#include <string_view>

#include "base/text.h"
#include "shared/data_format/record_columns.h"

namespace keyscout {

/// One line of a catalog table file, in bytes: index, catalog number, and behind their columns the
/// brand up to the line's end.
class CatalogLine {
 public:
  /// A line of fewer bytes has no place for a brand.
  static constexpr std::size_t minLength = RecordColumns::brand.first - 1;

  explicit CatalogLine(std::string_view bytes) : bytes_(bytes) {}

  /// The index and the catalog number, trimmed; whatever a shorter line has of them.
  std::string_view index() const { return trimmed(columns(bytes_, RecordColumns::index)); }
  std::string_view catalogNumber() const { return trimmed(catalogColumns()); }
  /// The columns of the catalog number as they stand.
  std::string_view catalogColumns() const { return columns(bytes_, RecordColumns::number); }

  /// The brand, trimmed. Fails with invalid argument (5) where the line ends before its column.
  std::string_view brand() const;

 private:
  std::string_view bytes_;
};

}  // namespace keyscout
