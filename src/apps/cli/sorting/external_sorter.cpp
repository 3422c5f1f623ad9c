#include "apps/cli/sorting/external_sorter.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace keyscout {
namespace {

// Few enough for every system's limit of open files.
constexpr std::size_t maxRunsAtOnce = 64;

void removeQuietly(std::span<const std::filesystem::path> files) {
  std::error_code ignored;
  for (const auto& file : files) std::filesystem::remove(file, ignored);
}

}  // namespace

ExternalSorter::ExternalSorter(std::filesystem::path folder, std::string name, std::size_t memory)
    : folder_(std::move(folder)), name_(std::move(name)), memory_(memory), buffer_(memory) {}

ExternalSorter::~ExternalSorter() {
  merger_.reset();
  removeQuietly(runs_);
}

void ExternalSorter::add(const SortRecord& record) {
  if (!buffer_->hasRoomFor(record)) spill();
  buffer_->add(record);
}

const SortRecord* ExternalSorter::next() {
  if (!merger_) startMerging();
  return merger_->next();
}

std::filesystem::path ExternalSorter::newRun() {
  return folder_ / (name_ + '.' + std::to_string(runsMade_++));
}

void ExternalSorter::spill() {
  runs_.push_back(newRun());
  OutputFile file{runs_.back()};
  buffer_->writeSorted(file);
  file.close();
}

void ExternalSorter::startMerging() {
  if (!buffer_->isEmpty()) spill();
  buffer_.reset();
  while (runs_.size() > maxRunsAtOnce) {
    // Neighbours are merged, and the result takes their place, so equal keys keep their order.
    std::vector<std::filesystem::path> merged;
    for (std::size_t first = 0; first < runs_.size(); first += maxRunsAtOnce) {
      const std::size_t count = std::min(maxRunsAtOnce, runs_.size() - first);
      merged.push_back(merge(std::span{runs_}.subspan(first, count)));
    }
    runs_ = std::move(merged);
  }
  merger_.emplace(runs_, memory_);
}

std::filesystem::path ExternalSorter::merge(std::span<const std::filesystem::path> runs) {
  std::filesystem::path result = newRun();
  {
    OutputFile file{result};
    RunMerger merger{runs, memory_};
    std::vector<char> bytes;
    while (const SortRecord* record = merger.next()) {
      bytes.clear();
      SortLayout::append(*record, bytes);
      file.write({bytes.data(), bytes.size()});
    }
    file.close();
  }
  removeQuietly(runs);
  return result;
}

}  // namespace keyscout
