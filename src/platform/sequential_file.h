#pragma once

#include <cstddef>
#include <cstring>
#include <exception>
#include <memory>
#include <string_view>

namespace keyscout {

/// A text file that is read once, line by line, from the top. A line ends with LF or with CR LF,
/// the last one also at the end of the file; any other byte is part of a line, and a line may be
/// of any length. Destroying the object closes the file.
///
/// Every lookup goes through here line after line, so only `read`, once for each block of the
/// file, is a virtual call.
class SequentialFile {
 public:
  SequentialFile() = default;
  SequentialFile(const SequentialFile&) = delete;
  SequentialFile& operator=(const SequentialFile&) = delete;
  virtual ~SequentialFile() = default;

  /// True when no line is left. Never fails: where reading on fails there is no end yet, and the
  /// next `readLine` tells of the failure.
  bool atEnd() noexcept { return position_ == limit_ && !bringMore(); }

  /// The next line's bytes without its end, valid until the next call. At the end of the file an
  /// empty line. Fails with the platform's file error, after which the same line can be tried
  /// again.
  std::string_view readLine() {
    const char* const start = position_;
    if (start != limit_) {
      const auto room = static_cast<std::size_t>(limit_ - start);
      if (const auto* end = static_cast<const char*>(std::memchr(start, '\n', room))) {
        position_ = end + 1;
        return {start, lengthWithoutReturn(start, end)};
      }
    }
    return readLineAcrossBlocks();
  }

 protected:
  /// Puts up to `room` next bytes of the file at `to`; how many, 0 at the end of the file only.
  virtual std::size_t read(char* to, std::size_t room) = 0;

 private:
  static std::size_t lengthWithoutReturn(const char* start, const char* end) {
    const bool hasReturn = end != start && end[-1] == '\r';
    return static_cast<std::size_t>(end - start) - (hasReturn ? 1 : 0);
  }

  bool bringMore() noexcept;
  std::string_view readLineAcrossBlocks();
  std::size_t fill();

  std::unique_ptr<char[]> buffer_;
  std::size_t capacity_ = 0;
  const char* position_ = nullptr;  // the next unread byte
  const char* limit_ = nullptr;     // behind the last byte read
  std::exception_ptr failure_;      // met by `atEnd`, for `readLine` to tell
};

}  // namespace keyscout
