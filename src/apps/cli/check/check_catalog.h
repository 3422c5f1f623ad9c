#pragma once

#include <cstdint>

#include "apps/cli/check/checked_directory.h"

namespace keyscout {

/// How much there was to check.
struct CheckSummary {
  std::uint64_t tables = 0;
  std::uint64_t lines = 0;
};

/// Reads a whole data directory and reports everything in it that would make a lookup fail, miss or
/// stray, file by file in the order in which a host comes to read them. The tables are read once,
/// and once more where numbers have small letters; memory does not grow with them. Fails with
/// `std::runtime_error` where the directory itself cannot be read.
CheckSummary checkCatalog(Files& files, const DataDirectory& directory, const FindingReport& report,
                          const CheckProgress& progress = {});

}  // namespace keyscout
