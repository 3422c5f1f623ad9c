#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace keyscout {

/// UTF-16 text, the form in which every string meets the host. Comparing two of them is ordinal:
/// by code unit, case-sensitive.
using String = std::u16string;
using StringView = std::u16string_view;

/// `text` without its leading and trailing space characters; other white space stays.
template <class Char>
constexpr std::basic_string_view<Char> trimmed(std::basic_string_view<Char> text) {
  if (!text.empty() && text.front() != Char{' '} && text.back() != Char{' '}) return text;
  const auto first = text.find_first_not_of(Char{' '});
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(Char{' '}) - first + 1);
}
constexpr StringView trimmed(const String& text) { return trimmed(StringView{text}); }

/// Columns of a line: the first, counted from 1, and how many they are.
struct Columns {
  std::size_t first;
  std::size_t width;

  /// The first column behind them.
  constexpr std::size_t end() const { return first + width; }
};

/// What `line` has in these columns: all, a part or nothing of it where the line is shorter.
template <class Char>
constexpr std::basic_string_view<Char> columns(std::basic_string_view<Char> line, Columns range) {
  return line.substr(std::min(range.first - 1, line.size()), range.width);
}

/// The last `width` characters of `line`, the whole line where it is shorter.
constexpr StringView lastColumns(StringView line, std::size_t width) {
  return line.substr(line.size() - std::min(width, line.size()));
}

}  // namespace keyscout
