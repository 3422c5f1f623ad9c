#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace keyscout::fuzz {

/// The bytes that a target is given, taken from the front. Behind their end there are zeros.
class FuzzInput {
 public:
  FuzzInput(const std::uint8_t* data, std::size_t size) {
    if (size != 0) bytes_ = {reinterpret_cast<const char*>(data), size};
  }
  explicit FuzzInput(std::string_view bytes) : bytes_(bytes) {}

  bool isAtEnd() const { return bytes_.empty(); }
  std::string_view rest() const { return bytes_; }

  char character() {
    if (isAtEnd()) return '\0';
    const char first = bytes_.front();
    bytes_.remove_prefix(1);
    return first;
  }
  std::size_t below(std::size_t limit) { return static_cast<unsigned char>(character()) % limit; }

  /// What stands before the next `~`, which goes too: the files of one input are parted by it.
  std::string_view section() {
    const std::size_t end = bytes_.find('~');
    const std::string_view found = bytes_.substr(0, end);
    bytes_.remove_prefix(end == bytes_.npos ? bytes_.size() : end + 1);
    return found;
  }

 private:
  std::string_view bytes_;
};

/// The lines of a text as files have them: ended by LF or CR LF, the last one also by the end.
inline std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    std::string line{text.substr(0, end)};
    text.remove_prefix(end == text.npos ? text.size() : end + 1);
    if (end != text.npos && line.ends_with('\r')) line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

/// Ends the run where `holds` is false; the fuzzer then keeps the input.
inline void require(bool holds, std::string_view otherwise) {
  if (holds) return;
  std::cerr << "broken promise: " << otherwise << std::endl;
  std::abort();
}

}  // namespace keyscout::fuzz
