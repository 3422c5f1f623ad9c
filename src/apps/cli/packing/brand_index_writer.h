#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include "shared/data_format/brand_index.h"

namespace keyscout {

/// Notes which tables hold which brand, for the brand index. The brands are held in memory, as they
/// are by every host.
class BrandIndexWriter {
 public:
  void add(std::string_view brand, std::uint64_t table);

  /// Writes the brand index for the index `indexName` in `folder` and the `tables` beside it, all
  /// of which are complete. Writes none where it would be larger than what lookups read.
  void write(const std::filesystem::path& folder, const std::filesystem::path& indexName,
             std::uint64_t tables) const;

 private:
  std::map<std::string, TableSet, std::less<>> brands_;
};

}  // namespace keyscout
