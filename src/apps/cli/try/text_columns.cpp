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

}  // namespace

std::wstring toCodePoints(StringView text) {
  std::wstring wide;
  for (std::size_t i = 0; i < text.size(); ++i) {
    auto point = static_cast<wchar_t>(text[i]);
    if (isHighSurrogate(text[i]) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
      point = static_cast<wchar_t>(pointOfPair(text[i], text[i + 1]));
      ++i;
    }
    wide += ::wcwidth(point) < 0 ? replacement : point;
  }
  return wide;
}

int columnsOf(const std::wstring& text) {
  int columns = 0;
  for (const wchar_t character : text) columns += widthOf(character);
  return columns;
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
