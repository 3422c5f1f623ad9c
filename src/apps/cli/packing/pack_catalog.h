#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>

#include "apps/cli/packing/pack_error.h"
#include "shared/data_format/directory_files.h"

namespace keyscout {

struct PackOptions {
  std::filesystem::path download;
  std::filesystem::path directory;  // made where there is none
  std::filesystem::path indexName = DirectoryFiles::usualIndex;
  /// Unless given, 200 or as many as it takes to get by with the 1001 tables of an index.
  std::optional<std::uint64_t> linesPerTable;
  /// About what a pack of any size takes, in bytes, besides the distinct brands.
  std::size_t memory = std::size_t{80} * 1024 * 1024;
};

/// What a pack made; the names are those that a host is configured with.
struct PackSummary {
  std::uint64_t records = 0;
  std::uint64_t tables = 0;
  std::uint64_t linesPerTable = 0;
  std::uint64_t brands = 0;
  std::filesystem::path indexName;
  std::filesystem::path downloadName;
};

/// Told now and then that `done` of `total` parts of a step are done.
using PackProgress =
    std::function<void(std::string_view step, std::uint64_t done, std::uint64_t total)>;

/// Makes a data directory that lookups can use from a catalog download: the tables, the index that
/// leads to them, the brand file, the download itself and the control file.
///
/// The new files are made in a folder inside the directory and take the place of the old ones when
/// all are there. Until then the control file says that the catalog is in process, afterwards that
/// it is ready, and after a failure that it is corrupt; where only the download is at fault the old
/// tables are still there.
///
/// Fails with `PackError`. Where its exit status is `unusable` and the download could not be opened
/// or the options make no sense, nothing at all was touched.
PackSummary packCatalog(const PackOptions& options, const PackProgress& progress = {});

}  // namespace keyscout
