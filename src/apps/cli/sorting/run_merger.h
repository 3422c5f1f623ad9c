#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

#include "apps/cli/sorting/sort_run.h"

namespace keyscout {

/// Reads several sorted files of records as one.
class RunMerger {
 public:
  /// The files share `memory` bytes among them, though each has a few thousand at least.
  RunMerger(std::span<const std::filesystem::path> runs, std::size_t memory);

  /// The next record in order, of records with equal keys the one from the earlier file first.
  /// Valid until the next call; null at the end.
  const SortRecord* next();

 private:
  void advance(std::size_t run);
  bool comesLater(std::size_t a, std::size_t b) const;
  auto byOrder() const {
    return [this](std::size_t a, std::size_t b) { return comesLater(a, b); };
  }

  std::vector<RunReader> readers_;
  std::vector<std::size_t> waiting_;  // a heap of readers, the one to be read next in front
  std::optional<std::size_t> current_;
};

}  // namespace keyscout
