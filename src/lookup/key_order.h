#pragma once

#include <string_view>

#include "platform/code_page.h"
#include "platform/text.h"

namespace keyscout {

/// True when `key` stands above the catalog number in `columns`, 8-bit text with blanks around it.
/// The order is that of UTF-16 code units; a lookup asks this of every line that it skips, so only
/// the bytes that decide are widened.
inline bool isAbove(StringView key, std::string_view columns, const CodePage& codePage) {
  const auto first = columns.find_first_not_of(' ');
  if (first == columns.npos) return !key.empty();
  columns.remove_prefix(first);

  const auto numberEndsAt = [&](std::size_t i) {
    return columns.find_first_not_of(' ', i) == columns.npos;
  };
  std::size_t i = 0;
  while (i < key.size() && i < columns.size() && codePage[columns[i]] == key[i]) ++i;
  if (i < key.size())
    return i == columns.size() || numberEndsAt(i) || key[i] > codePage[columns[i]];

  // The key is a beginning of the columns. It still stands above a number that ends within the
  // blanks at the key's own end.
  return key.ends_with(u' ') && numberEndsAt(key.size() - 1);
}

}  // namespace keyscout
