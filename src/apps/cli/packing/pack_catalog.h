#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>

#include "apps/cli/packing/download_maker.h"
#include "apps/cli/packing/pack_error.h"
#include "shared/data_format/directory_files.h"

namespace keyscout {

struct PackOptions {
  /// "-" for the program's own input; a pipe will do.
  std::filesystem::path download;
  /// Makes the download instead of `download`, where there is one.
  DownloadMaker* maker = nullptr;
  std::filesystem::path directory;  // made where there is none
  std::filesystem::path indexName = DirectoryFiles::usualIndex;
  /// The download's name in the directory; its own unless given, download.txt where it has none.
  std::filesystem::path downloadName = {};
  /// Unless given, 200 or as many as it takes to get by with the 1001 tables of an index.
  std::optional<std::uint64_t> linesPerTable = {};
  /// Takes a line of UTF-8 for what it is in Windows-1252 instead of refusing it.
  bool acceptsUtf8 = false;
  /// Packs into a directory that holds other files, and over those that have a name of the
  /// catalog's.
  bool force = false;
  /// Does all but touch the directory.
  bool dryRun = false;
  /// About what a pack of any size takes, in bytes, besides the distinct brands.
  std::size_t memory = std::size_t{80} * 1024 * 1024;
};

/// What a pack made; the names are those that a host is configured with.
struct PackSummary {
  std::uint64_t records = 0;
  std::uint64_t tables = 0;
  std::uint64_t linesPerTable = 0;
  std::uint64_t brands = 0;
  /// Records of a list that the download was made without.
  std::uint64_t dropped = 0;
  std::filesystem::path indexName = {};
  std::filesystem::path downloadName = {};
  /// True where another catalog was there before, which running hosts may still have in memory.
  bool replacesCatalog = false;
};

/// Makes a data directory that lookups can use from a catalog download: the tables, the index that
/// leads to them, the brand file, the download itself and the control file.
///
/// The new files are made in a folder inside the directory, and while they are, the catalog that
/// is there serves on. When all of them are on the disk they take its place; only meanwhile the
/// control file says in process. One pack at a time works in a directory. Files that are not the
/// former catalog's stay as they are.
///
/// Fails with `PackError`, or with what `progress` throws that is no `std::runtime_error`. The
/// directory is then as it was, save where its files could not be
/// exchanged: the control file stays in process then, and the next pack ends what was begun before
/// it does anything else.
PackSummary packCatalog(const PackOptions& options, const PackProgress& progress = {});

}  // namespace keyscout
