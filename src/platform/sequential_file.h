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

  /// Reads lines up to the first that is `wanted`, or to the last; the last line read, as
  /// `readLine` gives it. A line must be left. The file must be in order: once a line is wanted,
  /// all that follow are, so that a whole block of lines is passed over when its last one is not.
  template <class Wanted>
  std::string_view readUntil(Wanted&& wanted) {
    std::string_view line;
    for (;;) {
      const std::string_view block = linesInMemory();
      if (isFull() && !block.empty() && !wanted(line = lastLineOf(block))) {
        position_ = block.data() + block.size();
      } else {
        for (std::size_t left = block.size(); left != 0;) {
          const char* const start = position_;
          line = readLine();
          if (wanted(line)) return line;
          left -= static_cast<std::size_t>(position_ - start);
        }
      }
      if (!block.empty() && atEnd()) return line;
      line = readLine();
      if (wanted(line) || atEnd()) return line;
    }
  }

 protected:
  /// Puts up to `room` next bytes of the file at `to`; how many, 0 at the end of the file only.
  virtual std::size_t read(char* to, std::size_t room) = 0;

  /// Reads on in another file, for files that hand the bytes of one on. Of that one nothing may
  /// have been read line by line.
  static std::size_t readFrom(SequentialFile& file, char* to, std::size_t room) {
    return file.read(to, room);
  }

 private:
  static std::size_t lengthWithoutReturn(const char* start, const char* end) {
    const bool hasReturn = end != start && end[-1] == '\r';
    return static_cast<std::size_t>(end - start) - (hasReturn ? 1 : 0);
  }

  bool isFull() const { return limit_ == buffer_.get() + capacity_; }

  /// The unread lines that are wholly in memory.
  std::string_view linesInMemory() const {
    const std::string_view unread{position_, static_cast<std::size_t>(limit_ - position_)};
    return unread.substr(0, unread.rfind('\n') + 1);
  }

  static std::string_view lastLineOf(std::string_view lines) {
    const char* const end = lines.data() + lines.size() - 1;
    lines.remove_suffix(1);
    const char* const start = lines.data() + lines.rfind('\n') + 1;
    return {start, lengthWithoutReturn(start, end)};
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
