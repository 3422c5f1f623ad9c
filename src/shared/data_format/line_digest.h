#pragma once

#include <cstdint>
#include <string_view>

namespace keyscout {

/// A 64-bit number that tells one text file from another: FNV-1a over the bytes of its lines, each
/// followed by LF whatever ends it in the file.
class LineDigest {
 public:
  void add(std::string_view line) {
    for (const char byte : line) add(static_cast<unsigned char>(byte));
    add('\n');
  }
  std::uint64_t value() const { return value_; }

 private:
  void add(unsigned char byte) { value_ = (value_ ^ byte) * 0x100000001B3; }

  std::uint64_t value_ = 0xCBF29CE484222325;
};

}  // namespace keyscout
