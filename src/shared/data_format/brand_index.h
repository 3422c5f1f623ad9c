#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sequential_file.h"
#include "shared/data_format/line_digest.h"
#include "shared/keyscout_module.h"

namespace keyscout {

/// Some of the catalog's tables, by their positions in the index.
using TableSet = std::bitset<keyscoutModule::catalogTableCapacity>;

/// What the lines of a brand index hold: which tables hold each brand. The first line names the
/// format, the second the index that it was made for by its digest, the third the tables' sizes in
/// bytes. A line for each brand follows, spelled as in the tables: the tables' positions as numbers
/// and spans ("0-3,7"), a blank, the brand. The last line has the digest of those before it.
namespace BrandIndexFormat {
inline constexpr std::string_view title = "BRANDINDEX 1";
inline constexpr std::string_view index = "INDEX ";
inline constexpr std::string_view sizes = "SIZES ";
inline constexpr std::string_view end = "END ";

/// In bytes. Reading a larger one at every keystroke would cost more than it spares.
inline constexpr std::uint64_t maxSize = std::uint64_t{1024} * 1024;

/// A digest as it is written: 16 hexadecimal digits.
std::string digestText(std::uint64_t digest);
/// The tables as numbers and spans.
std::string tablesText(const TableSet& tables);
}  // namespace BrandIndexFormat

/// Reads a brand index. Whatever it gives is only worth something once `isWhole` is true.
class BrandIndexReader {
 public:
  struct Brand {
    TableSet tables;
    std::string_view name;  // valid until the next one is read
  };

  /// Reads the lines before those of the brands. Fails as `SequentialFile` does.
  explicit BrandIndexReader(SequentialFile& file);

  /// The digest of the index that it was made for, absent where there is none in it.
  std::optional<std::uint64_t> indexDigest() const { return indexDigest_; }
  /// The size of each table, in bytes.
  const std::vector<std::uint64_t>& tableSizes() const { return tableSizes_; }

  /// The next brand; absent behind the last one and where a line is none.
  std::optional<Brand> nextBrand();

  /// True when all of the file has been read and is what was once written.
  bool isWhole() const { return isWhole_; }

 private:
  std::optional<std::string_view> takeLine(std::string_view beginning);

  SequentialFile& file_;
  LineDigest digest_;
  std::optional<std::uint64_t> indexDigest_;
  std::vector<std::uint64_t> tableSizes_;
  bool isWhole_ = false;
};

}  // namespace keyscout
