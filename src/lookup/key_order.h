#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/code_page.h"
#include "base/text.h"

namespace keyscout {

/// Compares a key with catalog numbers as they stand in their files: 8-bit text with blanks around
/// it. The order is that of the trimmed text in UTF-16 code units. A lookup asks this of every line
/// that it skips, so nothing is widened but what decides, and mostly eight bytes decide at once.
class KeyOrder {
 public:
  /// Both must outlive the object.
  KeyOrder(StringView key, const CodePage& codePage);

  /// True when the key stands above the catalog number in `columns`.
  bool isAbove(std::string_view columns) const {
    if (columns.size() >= sizeof head_ && hasHead_) {
      const std::uint64_t head = headOf(columns.data());
      if (isPlain(head) && head != head_) return head_ > head;
    }
    return isAboveByUnits(columns);
  }

 private:
  /// The first eight bytes as a number whose order is theirs.
  static std::uint64_t headOf(const char* bytes) {
    const auto byte = [bytes](int i) -> std::uint64_t {
      return static_cast<unsigned char>(bytes[i]);
    };
    return byte(0) << 56 | byte(1) << 48 | byte(2) << 40 | byte(3) << 32 | byte(4) << 24 |
           byte(5) << 16 | byte(6) << 8 | byte(7);
  }

  /// True when the order of bytes is the order of the trimmed texts: all of them ASCII, none below
  /// the blank that fills columns up, and no blank in front.
  static bool isPlain(std::uint64_t head) {
    constexpr std::uint64_t lowest = 0x2120202020202020;
    constexpr std::uint64_t highBits = 0x8080808080808080;
    return (((head - lowest) | head) & highBits) == 0;
  }

  bool isAboveByUnits(std::string_view columns) const;

  StringView key_;
  const CodePage& codePage_;
  std::uint64_t head_ = 0;  // of the key, filled up with blanks
  bool hasHead_ = false;
};

/// True when the catalog number in `columns` stands below the one in `others`, in the same order.
bool isNumberBelow(std::string_view columns, std::string_view others, const CodePage& codePage);

}  // namespace keyscout
