#include "platform/sequential_file.h"

#include <algorithm>
#include <utility>

namespace keyscout {
namespace {

// Large enough to make system calls rare, small enough that a block stays in the processor's
// first cache between being read and being searched.
constexpr std::size_t blockSize = 16384;

constexpr char endMark = '\x1A';

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
/// the whole buffer doubles it. A mark that ends a block is held back until another byte shows that
/// it does not end the file.
std::size_t SequentialFile::fill() {
  const auto unread = static_cast<std::size_t>(limit_ - position_);
  if (unread + 1 >= buffer_.size) {
    enlarge(unread);
  } else if (unread != 0) {
    std::memmove(buffer_.bytes.get(), position_, unread);
  }
  setUnread(0, unread);
  char* const to = buffer_.bytes.get() + unread;
  for (;;) {
    const std::size_t held = isEndMarkHeld_ ? 1 : 0;
    const std::size_t count = read(to + held, buffer_.size - unread - held);
    if (count == 0) return 0;
    if (isEndMarkHeld_) *to = endMark;
    const std::size_t all = held + count;
    isEndMarkHeld_ = to[all - 1] == endMark;
    const std::size_t fresh = all - (isEndMarkHeld_ ? 1 : 0);
    limit_ += fresh;
    if (fresh != 0) return fresh;
  }
}

void SequentialFile::enlarge(std::size_t unread) {
  const std::size_t larger = std::max(blockSize, buffer_.size * 2);
  auto bytes = std::make_unique_for_overwrite<char[]>(larger);
  if (unread != 0) std::memcpy(bytes.get(), position_, unread);
  buffer_ = {std::move(bytes), larger};
}

std::span<char> SequentialFile::emptyBuffer() {
  if (buffer_.size == 0) enlarge(0);
  isEndMarkHeld_ = false;
  setUnread(0, 0);
  return {buffer_.bytes.get(), buffer_.size};
}

void SequentialFile::setUnread(std::size_t first, std::size_t end) {
  position_ = buffer_.bytes.get() + first;
  limit_ = buffer_.bytes.get() + end;
}

SequentialFile::Buffer SequentialFile::releaseBuffer() {
  position_ = limit_ = nullptr;
  Buffer released = std::exchange(buffer_, {});
  if (released.size > blockSize) released = {};
  return released;
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
