#pragma once

#include <cstddef>
#include <string_view>

#include "base/text.h"

namespace keyscout {

/// One line of a catalog table file, in bytes: index in columns 1 to 10, catalog number in 11 to
/// 70, brand from 71 to the end.
class CatalogLine {
 public:
  explicit CatalogLine(std::string_view bytes) : bytes_(bytes) {}

  /// The index and the catalog number, trimmed; whatever a shorter line has of them.
  std::string_view index() const { return trimmed(columns(bytes_, 1, numberColumn - 1)); }
  std::string_view catalogNumber() const { return trimmed(catalogColumns()); }
  /// The columns of the catalog number as they stand.
  std::string_view catalogColumns() const {
    return columns(bytes_, numberColumn, brandColumn - numberColumn);
  }

  /// The brand, trimmed. Fails with invalid argument (5) where the line ends before its column.
  std::string_view brand() const;

 private:
  static constexpr std::size_t numberColumn = 11;
  static constexpr std::size_t brandColumn = 71;

  std::string_view bytes_;
};

}  // namespace keyscout
