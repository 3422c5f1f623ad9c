#include "apps/cli/try/text_columns.h"

#include <cwchar>

#include "base/surrogates.h"

namespace keyscout {
namespace {

constexpr wchar_t replacement = 0xFFFD;

int widthOf(wchar_t character) {
  const int width = ::wcwidth(character);
  return width < 0 ? 1 : width;
}

constexpr char16_t joiner = 0x200D;  // makes one of the characters around it

/// The code point at `at`; half of a pair stands for itself.
char32_t pointAt(StringView text, std::size_t at) {
  const bool isPair =
      isHighSurrogate(text[at]) && at + 1 < text.size() && isLowSurrogate(text[at + 1]);
  return isPair ? pointOfPair(text[at], text[at + 1]) : text[at];
}

/// Belongs to the character before it: takes no column, or gives a face its colour.
bool isMark(char32_t point) {
  return ::wcwidth(static_cast<wchar_t>(point)) == 0 || (point >= 0x1F3FB && point <= 0x1F3FF);
}

}  // namespace

std::wstring toCodePoints(StringView text) {
  std::wstring wide;
  for (std::size_t i = 0; i < text.size();) {
    const char32_t point = pointAt(text, i);
    const auto character = static_cast<wchar_t>(point);
    wide += ::wcwidth(character) < 0 ? replacement : character;
    i += point > 0xFFFF ? 2 : 1;
  }
  return wide;
}

int columnsOf(const std::wstring& text) {
  int columns = 0;
  for (const wchar_t character : text) columns += widthOf(character);
  return columns;
}

std::size_t characterBefore(StringView text, std::size_t at) {
  while (at > 0) {
    --at;
    if (at > 0 && isLowSurrogate(text[at]) && isHighSurrogate(text[at - 1])) --at;
    const bool joinsTheOneBefore = at > 0 && text[at - 1] == joiner;
    if (!joinsTheOneBefore && !isMark(pointAt(text, at))) break;
  }
  return at;
}

std::size_t characterBehind(StringView text, std::size_t at) {
  for (bool joins = true; at < text.size();) {
    const char32_t point = pointAt(text, at);
    if (!joins && !isMark(point)) break;
    joins = point == joiner;
    at += point > 0xFFFF ? 2 : 1;
  }
  return at;
}

std::wstring shortened(const std::wstring& text, int width) {
  if (columnsOf(text) <= width || width < 1) return fitted(text, width);
  return fitted(text, width - 1) + L'\x2026';
}

std::wstring fitted(const std::wstring& text, int width) {
  std::wstring result;
  int columns = 0;
  for (const wchar_t character : text) {
    if (columns + widthOf(character) > width) break;
    columns += widthOf(character);
    result += character;
  }
  return result.append(static_cast<std::size_t>(width - columns), L' ');
}

}  // namespace keyscout
