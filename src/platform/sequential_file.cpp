#include "platform/sequential_file.h"

#include <algorithm>
#include <utility>

namespace keyscout {
namespace {

// Large enough to make system calls rare, small enough that a block stays in the processor's
// first cache between being read and being searched.
constexpr std::size_t blockSize = 16384;

}  // namespace

bool SequentialFile::bringMore() noexcept {
  if (failure_) return true;
  try {
    return fill() != 0;
  } catch (...) {
    failure_ = std::current_exception();
    return true;
  }
}

/// Reads one more block behind the unread bytes, which move to the front first. A line that fills
/// the whole buffer doubles it.
std::size_t SequentialFile::fill() {
  const auto unread = static_cast<std::size_t>(limit_ - position_);
  if (unread == capacity_) {
    const std::size_t larger = std::max(blockSize, capacity_ * 2);
    auto buffer = std::make_unique_for_overwrite<char[]>(larger);
    if (unread != 0) std::memcpy(buffer.get(), position_, unread);
    buffer_ = std::move(buffer);
    capacity_ = larger;
  } else if (unread != 0) {
    std::memmove(buffer_.get(), position_, unread);
  }
  position_ = buffer_.get();
  limit_ = position_ + unread;
  const std::size_t count = read(buffer_.get() + unread, capacity_ - unread);
  limit_ += count;
  return count;
}

std::string_view SequentialFile::readLineAcrossBlocks() {
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
  for (;;) {
    const auto searched = static_cast<std::size_t>(limit_ - position_);
    const std::size_t count = fill();
    const char* const start = position_;
    if (count == 0) {
      position_ = limit_;
      return {start, searched};
    }
    if (const auto* end = static_cast<const char*>(std::memchr(start + searched, '\n', count))) {
      position_ = end + 1;
      return {start, lengthWithoutReturn(start, end)};
    }
  }
}

}  // namespace keyscout
