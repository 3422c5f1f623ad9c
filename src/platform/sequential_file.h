#pragma once

#include <cstddef>
#include <cstring>
#include <exception>
#include <memory>
#include <span>
#include <string_view>
#include <utility>

namespace keyscout {

/// A text file that is read once, line by line, from the top. A line ends with LF or with CR LF,
/// the last one also at the end of the file. Where the file's last byte is a Ctrl+Z, as old
/// programs end texts, that byte is no part of it; any other is part of a line, and a line may be
/// of any length. Destroying the object closes the file.
///
/// Every lookup goes through here line after line, so only `read`, once for each block of the
/// file, is a virtual call.
class SequentialFile {
 public:
  /// Where the bytes of a file stand between being read and being asked for.
  struct Buffer {
    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;
  };

  SequentialFile() = default;
  SequentialFile(const SequentialFile&) = delete;
  SequentialFile& operator=(const SequentialFile&) = delete;
  virtual ~SequentialFile() = default;

  /// True when no line is left. Never fails: where reading on fails there is no end yet, and the
  /// next `readLine` tells of the failure. At the end the line read last is still valid.
  bool atEnd() noexcept { return position_ == limit_ && !bringMore(); }

  /// The next line's bytes without its end, valid until the file is read on. At the end of the file
  /// an empty line. Fails with the platform's file error, after which the same line can be tried
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
  /// Reads with a buffer that another file is done with.
  explicit SequentialFile(Buffer buffer) : buffer_(std::move(buffer)) {}
  /// Ends the reading of lines and hands the buffer out. One that a long line has enlarged is not
  /// worth keeping and gone: the buffer is empty then.
  Buffer releaseBuffer();

  /// Puts up to `room` next bytes of the file at `to`; how many, 0 at the end of the file only.
  virtual std::size_t read(char* to, std::size_t room) = 0;

  /// Drops what is unread; the whole buffer, for a file that looks about before it is read on.
  std::span<char> emptyBuffer();
  /// Makes the buffer's bytes from `first` on, `end` excluded, the next ones to be read.
  void setUnread(std::size_t first, std::size_t end);

 private:
  static std::size_t lengthWithoutReturn(const char* start, const char* end) {
    const bool hasReturn = end != start && end[-1] == '\r';
    return static_cast<std::size_t>(end - start) - (hasReturn ? 1 : 0);
  }

  bool bringMore() noexcept;
  std::string_view readLineAcrossBlocks();
  std::size_t fill();
  void enlarge(std::size_t unread);

  Buffer buffer_;
  const char* position_ = nullptr;  // the next unread byte
  const char* limit_ = nullptr;     // behind the last byte read
  bool isEndMarkHeld_ = false;      // read behind the unread bytes, and not among them
  std::exception_ptr failure_;      // met by `atEnd`, for `readLine` to tell
};

}  // namespace keyscout
