#pragma once

#include <array>
#include <string_view>

#include "base/text.h"

namespace keyscout {

/// An 8-bit code page: one UTF-16 code unit for each of the 256 bytes.
class CodePage {
 public:
  explicit constexpr CodePage(const std::array<char16_t, 256>& units) : units_(units) {}

  constexpr char16_t operator[](char byte) const {
    return units_[static_cast<unsigned char>(byte)];
  }

  String decode(std::string_view bytes) const {
    String text;
    decode(bytes, text);
    return text;
  }

  /// The same into a string whose memory is used again.
  void decode(std::string_view bytes, String& text) const {
    text.resize(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) text[i] = (*this)[bytes[i]];
  }

 private:
  std::array<char16_t, 256> units_;
};

/// Windows-1252; its five unassigned bytes stand for the control characters of the same number,
/// so that no byte is lost.
const CodePage& windows1252();

}  // namespace keyscout
