#include "apps/cli/sorting/run_buffer.h"

#include <algorithm>
#include <string_view>

namespace keyscout {
namespace {

/// The first eight bytes as a number that orders like them; a shorter key is filled up with zeros.
std::uint64_t startOf(std::string_view key) {
  std::uint64_t start = 0;
  for (std::size_t i = 0; i < sizeof start; ++i)
    start = start << 8 | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
  return start;
}

}  // namespace

RunBuffer::RunBuffer(std::size_t memory)
    : byteLimit_(memory / 4 * 3), entryLimit_(memory / 4 / sizeof(Entry)) {
  bytes_.reserve(byteLimit_);
  entries_.reserve(entryLimit_);
}

bool RunBuffer::hasRoomFor(const SortRecord& record) const {
  if (isEmpty()) return true;
  return bytes_.size() + SortLayout::sizeOf(record) <= byteLimit_ && entries_.size() < entryLimit_;
}

void RunBuffer::add(const SortRecord& record) {
  entries_.push_back({startOf(record.key), bytes_.size()});
  SortLayout::append(record, bytes_);
}

void RunBuffer::writeSorted(OutputFile& file) {
  const char* const base = bytes_.data();
  std::ranges::sort(entries_, [base](const Entry& a, const Entry& b) {
    if (a.keyStart != b.keyStart) return a.keyStart < b.keyStart;
    const int order =
        SortLayout::at(base + a.offset).key.compare(SortLayout::at(base + b.offset).key);
    return order != 0 ? order < 0 : a.offset < b.offset;
  });
  for (const Entry& entry : entries_) {
    const char* const head = base + entry.offset;
    file.write({head, SortLayout::headSize + SortLayout::bodySize(head)});
  }
  bytes_.clear();
  entries_.clear();
}

}  // namespace keyscout
