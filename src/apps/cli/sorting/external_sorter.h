#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "apps/cli/sorting/run_buffer.h"
#include "apps/cli/sorting/run_merger.h"
#include "apps/cli/sorting/sort_run.h"

namespace keyscout {

/// Sorts more records than fit into memory: sorts as many as do, writes them to a file of their
/// own, and merges these files in the end. Records come out in the byte order of their keys, those
/// with equal keys in the order in which they were added.
///
/// What it costs: memory as given, and no more for more records; on disk the size of the records
/// and 4 bytes each. Every record is written once and read once while there are no more than 64
/// files, which is 64 times the given memory; beyond that all of them are written and read once
/// more, for each further factor of 64, which takes 1/64 of the disk space in addition.
///
/// Everything fails with `std::runtime_error` where a file cannot be written or read.
class ExternalSorter {
 public:
  /// The files are made in `folder`, which must exist, under names that begin with `name`; they are
  /// gone when the object is.
  ExternalSorter(std::filesystem::path folder, std::string name, std::size_t memory);
  ~ExternalSorter();
  ExternalSorter(const ExternalSorter&) = delete;
  ExternalSorter& operator=(const ExternalSorter&) = delete;

  void add(const SortRecord& record);

  /// The next record in order, valid until the next call; null at the end. The first call ends the
  /// adding.
  const SortRecord* next();

 private:
  std::filesystem::path newRun();
  void spill();
  void startMerging();
  std::filesystem::path merge(std::span<const std::filesystem::path> runs);

  std::filesystem::path folder_;
  std::string name_;
  std::size_t memory_;
  std::optional<RunBuffer> buffer_;  // while records are added
  std::size_t runsMade_ = 0;
  std::vector<std::filesystem::path> runs_;
  std::optional<RunMerger> merger_;  // from the first `next` on
};

}  // namespace keyscout
