#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace keyscout {

/// A file that is open to be read at any place. Destroying the object closes it.
class RandomAccessFile {
 public:
  RandomAccessFile() = default;
  RandomAccessFile(const RandomAccessFile&) = delete;
  RandomAccessFile& operator=(const RandomAccessFile&) = delete;
  virtual ~RandomAccessFile() = default;

  /// How many bytes the file held when it was opened; others may write to it meanwhile. Absent for
  /// a file that can only be read from its first byte on without a leap.
  virtual std::optional<std::uint64_t> size() const = 0;

  /// Puts up to `room` bytes from `offset` on at `to`; how many, 0 at the file's end and behind it
  /// only. Fails with path or file access error (75), after which it can be tried again.
  virtual std::size_t readAt(std::uint64_t offset, char* to, std::size_t room) = 0;
};

}  // namespace keyscout
