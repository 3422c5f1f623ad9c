#include "apps/cli/csv/field_text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <optional>
#include <stdexcept>

#include "apps/cli/sentences/in_quotes.h"
#include "base/letter_case.h"
#include "base/surrogates.h"
#include "base/utf8.h"
#include "platform/local/native_code_page.h"

namespace keyscout {
namespace {

std::string systemName(const std::string& codePage) {
  const bool isNumber = codePage.find_first_not_of("0123456789") == codePage.npos;
  return isNumber ? "CP" + codePage : codePage;
}

/// The byte of the catalog's code page for `unit`.
std::optional<char> byteOf(char16_t unit) {
  if (unit < 0x80) return static_cast<char>(unit);
  for (int byte = 0x80; byte < 0x100; ++byte)
    if (nativeCodePage()[static_cast<char>(byte)] == unit) return static_cast<char>(byte);
  return std::nullopt;
}

}  // namespace

FieldDecoder::FieldDecoder(const std::string& codePage)
    : name_(codePage), converter_(iconv_open("UTF-16LE", systemName(codePage).c_str())) {
  // The library's sign of a failure is no pointer to anything.
  // NOLINTNEXTLINE(performance-no-int-to-ptr)
  if (converter_.get() != reinterpret_cast<iconv_t>(std::intptr_t{-1})) return;
  static_cast<void>(converter_.release());
  throw std::invalid_argument("The code page " + inQuotes(fromUtf8(codePage)) + " is not known.");
}

String FieldDecoder::decode(std::string_view bytes) const {
  String text;
  char* from = const_cast<char*>(bytes.data());
  std::size_t left = bytes.size();
  while (left != 0) {
    std::array<char, 512> room{};
    char* to = room.data();
    std::size_t roomLeft = room.size();
    const std::size_t result = iconv(converter_.get(), &from, &left, &to, &roomLeft);
    const bool hasFailed = result == static_cast<std::size_t>(-1);
    const bool isFull = hasFailed && errno == E2BIG;
    for (const char* unit = room.data(); unit != to; unit += 2)
      text += static_cast<char16_t>(static_cast<unsigned char>(unit[0]) |
                                    static_cast<unsigned char>(unit[1]) << 8);
    if (!hasFailed || isFull) continue;
    iconv(converter_.get(), nullptr, nullptr, nullptr, nullptr);
    throw std::invalid_argument("its bytes are no " + name_ +
                                "; say what they are by --code-page, 1252 for example");
  }
  return text;
}

std::string catalogBytes(StringView text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = byteOf(text[i]);
    if (!byte) {
      const bool isPair = isHighSurrogate(text[i]) && i + 1 < text.size();
      throw std::invalid_argument("the character " + inQuotes(text.substr(i, isPair ? 2 : 1)) +
                                  " has no place in Windows-1252, in which catalogs are written");
    }
    bytes += *byte;
  }
  return bytes;
}

String inCapitals(StringView text) {
  String capitals{text};
  for (char16_t& unit : capitals)
    if (const char16_t capital = upperCase(unit); byteOf(capital)) unit = capital;
  return capitals;
}

}  // namespace keyscout
