#include "apps/cli/sorting/run_merger.h"

#include <algorithm>

namespace keyscout {
namespace {

constexpr std::size_t minReadAhead = 4096;
constexpr std::size_t maxReadAhead = std::size_t{1024} * 1024;

}  // namespace

RunMerger::RunMerger(std::span<const std::filesystem::path> runs, std::size_t memory) {
  readers_.reserve(runs.size());
  for (const auto& run : runs)
    readers_.emplace_back(run, std::clamp(memory / runs.size(), minReadAhead, maxReadAhead));
  for (std::size_t run = 0; run < readers_.size(); ++run) advance(run);
}

const SortRecord* RunMerger::next() {
  // The record handed out last stays valid until here, so its reader goes on only now.
  if (current_) advance(*current_);
  current_.reset();
  if (waiting_.empty()) return nullptr;
  std::ranges::pop_heap(waiting_, byOrder());
  current_ = waiting_.back();
  waiting_.pop_back();
  return &readers_[*current_].record();
}

void RunMerger::advance(std::size_t run) {
  if (!readers_[run].advance()) return;
  waiting_.push_back(run);
  std::ranges::push_heap(waiting_, byOrder());
}

bool RunMerger::comesLater(std::size_t a, std::size_t b) const {
  const int order = readers_[a].record().key.compare(readers_[b].record().key);
  return order != 0 ? order > 0 : a > b;
}

}  // namespace keyscout
