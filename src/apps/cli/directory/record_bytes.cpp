#include "apps/cli/directory/record_bytes.h"

#include <algorithm>

#include "base/utf8.h"
#include "platform/local/native_code_page.h"

namespace keyscout {
namespace {

bool isPlain(char byte) { return byte >= 0x20 && byte < 0x7F; }
bool isBeyondAscii(char byte) { return (static_cast<unsigned char>(byte) & 0x80) != 0; }

/// A byte that the code page leaves unassigned stands for a control character or for one of those
/// that Unicode keeps for private use.
bool isUndefined(char byte) {
  const char16_t unit = nativeCodePage()[byte];
  return (unit >= u'\x80' && unit < u'\xA0') || (unit >= u'\uE000' && unit < u'\uF900');
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

std::string nameOfCodePage() { return "Windows-" + std::to_string(nativeCodePageNumber()); }

std::optional<std::string> strangeCharacterIn(std::string_view bytes) {
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (isPlain(bytes[i])) continue;
    const std::string place = "character " + std::to_string(i + 1) + " is the ";
    const std::string value = inHexadecimal(bytes[i]) + " (hexadecimal)";
    if (isUndefined(bytes[i]))
      return place + "byte " + value + ", which " + nameOfCodePage() + " has no use for";
    if (!isBeyondAscii(bytes[i])) return place + "control character " + value + nameOf(bytes[i]);
  }
  return std::nullopt;
}

bool isUtf8BeyondAscii(std::string_view bytes) {
  return std::ranges::any_of(bytes, isBeyondAscii) &&
         fromUtf8(bytes).find(u'\uFFFD') == String::npos;
}

}  // namespace keyscout
