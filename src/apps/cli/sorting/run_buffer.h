#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "apps/cli/files/output_file.h"
#include "apps/cli/sorting/sort_run.h"

namespace keyscout {

/// Collects records up to a limit of memory and writes them out in order.
class RunBuffer {
 public:
  /// Takes hold of about `memory` bytes.
  explicit RunBuffer(std::size_t memory);

  bool isEmpty() const { return entries_.empty(); }
  /// False where `record` would go beyond the limit; an empty buffer has room for any record.
  bool hasRoomFor(const SortRecord& record) const;
  void add(const SortRecord& record);

  /// Writes the records in order of their keys, those with equal keys in the order in which they
  /// were added, and is empty then.
  void writeSorted(OutputFile& file);

 private:
  /// The first bytes of a key decide most comparisons, without a look at the record.
  struct Entry {
    std::uint64_t keyStart;
    std::size_t offset;
  };

  std::size_t byteLimit_;
  std::size_t entryLimit_;
  std::vector<char> bytes_;
  std::vector<Entry> entries_;
};

}  // namespace keyscout
