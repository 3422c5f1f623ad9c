#include "apps/cli/directory/record_bytes.h"

#include <algorithm>

#include "base/utf8.h"

namespace keyscout {
namespace {

bool isPlain(char byte) { return byte >= 0x20 && byte < 0x7F; }
bool isBeyondAscii(char byte) { return (static_cast<unsigned char>(byte) & 0x80) != 0; }

/// Windows-1252 leaves these five unassigned.
bool isUndefined(char byte) {
  return std::string_view{"\x81\x8D\x8F\x90\x9D"}.find(byte) != std::string_view::npos;
}

std::string inHexadecimal(char byte) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  const auto value = static_cast<unsigned char>(byte);
  return {digits[value >> 4], digits[value & 0xF]};
}

/// What people call the control characters that lists have.
std::string nameOf(char control) {
  if (control == '\t') return ", a tab";
  return control == '\n' || control == '\r' ? ", a line break" : "";
}

}  // namespace

std::optional<std::string> strangeCharacterIn(std::string_view bytes) {
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (isPlain(bytes[i])) continue;
    const std::string place = "character " + std::to_string(i + 1) + " is the ";
    const std::string value = inHexadecimal(bytes[i]) + " (hexadecimal)";
    if (isUndefined(bytes[i]))
      return place + "byte " + value + ", which Windows-1252 has no use for";
    if (!isBeyondAscii(bytes[i])) return place + "control character " + value + nameOf(bytes[i]);
  }
  return std::nullopt;
}

bool isUtf8BeyondAscii(std::string_view bytes) {
  return std::ranges::any_of(bytes, isBeyondAscii) &&
         fromUtf8(bytes).find(u'\uFFFD') == String::npos;
}

}  // namespace keyscout
