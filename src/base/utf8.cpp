#include "base/utf8.h"

#include "base/surrogates.h"

namespace keyscout {
namespace {

void append(std::string& out, char32_t point) {
  const auto tail = [&](int shift) { out += static_cast<char>(0x80 | ((point >> shift) & 0x3F)); };
  if (point < 0x80) {
    out += static_cast<char>(point);
  } else if (point < 0x800) {
    out += static_cast<char>(0xC0 | (point >> 6));
    tail(0);
  } else if (point < 0x10000) {
    out += static_cast<char>(0xE0 | (point >> 12));
    tail(6);
    tail(0);
  } else {
    out += static_cast<char>(0xF0 | (point >> 18));
    tail(12);
    tail(6);
    tail(0);
  }
}

/// The code point at the start of `bytes` and its length; length 0 where there is none.
struct Decoded {
  char32_t point = 0;
  std::size_t length = 0;
};

Decoded decodeFirst(std::string_view bytes) {
  const auto lead = static_cast<unsigned char>(bytes[0]);
  if (lead < 0x80) return {lead, 1};
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || bytes.size() < length) return {};
  char32_t point = lead & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    if ((byte & 0xC0) != 0x80) return {};
    point = point << 6 | (byte & 0x3F);
  }
  const bool overlong = (length == 3 && point < 0x800) || (length == 4 && point < 0x10000);
  if (overlong || point > 0x10FFFF) return {};
  return {point, length};
}

}  // namespace

std::string toUtf8(StringView text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t point = text[i];
    if (isHighSurrogate(text[i]) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
      point = pointOfPair(text[i], text[i + 1]);
      ++i;
    } else if (isHighSurrogate(text[i]) || isLowSurrogate(text[i])) {
      point = 0xFFFD;
    }
    append(out, point);
  }
  return out;
}

String fromUtf8(std::string_view bytes) {
  String out;
  out.reserve(bytes.size());
  while (!bytes.empty()) {
    const Decoded decoded = decodeFirst(bytes);
    if (decoded.length == 0) {
      out += u'\uFFFD';
      bytes.remove_prefix(1);
      continue;
    }
    if (decoded.point < 0x10000) {
      out += static_cast<char16_t>(decoded.point);
    } else {
      out += highSurrogate(decoded.point);
      out += lowSurrogate(decoded.point);
    }
    bytes.remove_prefix(decoded.length);
  }
  return out;
}

}  // namespace keyscout
