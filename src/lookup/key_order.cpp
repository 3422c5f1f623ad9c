#include "lookup/key_order.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace keyscout {

KeyOrder::KeyOrder(StringView key, const CodePage& codePage) : key_(key), codePage_(codePage) {
  std::array<char, sizeof head_> bytes;
  bytes.fill(' ');
  const StringView beginning = key.substr(0, bytes.size());
  if (std::ranges::any_of(beginning, [](char16_t unit) { return unit >= 0x80; })) return;
  std::ranges::transform(beginning, bytes.begin(),
                         [](char16_t unit) { return static_cast<char>(unit); });
  head_ = headOf(bytes.data());
  hasHead_ = isPlain(head_);
}

bool KeyOrder::isAboveByUnits(std::string_view columns) const {
  const auto first = columns.find_first_not_of(' ');
  if (first == columns.npos) return !key_.empty();
  columns.remove_prefix(first);

  const auto endsAt = [&](std::size_t i) {
    return columns.find_first_not_of(' ', i) == columns.npos;
  };
  std::size_t i = 0;
  while (i < key_.size() && i < columns.size() && codePage_[columns[i]] == key_[i]) ++i;
  if (i < key_.size()) {
    return i == columns.size() || endsAt(i) || key_[i] > codePage_[columns[i]];
  }
  // The key is a beginning of the columns. It still stands above a number that ends within the
  // blanks at the key's own end.
  return key_.ends_with(u' ') && endsAt(key_.size() - 1);
}

bool isNumberBelow(std::string_view columns, std::string_view others, const CodePage& codePage) {
  const auto skipBlanks = [](std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  };
  const auto isBlank = [](std::string_view text) {
    return text.find_first_not_of(' ') == text.npos;
  };
  skipBlanks(columns);
  skipBlanks(others);
  // Neighbours in a table begin alike: what has the same bytes is passed over eight at a time.
  std::size_t same = 0;
  const std::size_t shorter = std::min(columns.size(), others.size());
  while (same + sizeof(std::uint64_t) <= shorter &&
         std::memcmp(columns.data() + same, others.data() + same, sizeof(std::uint64_t)) == 0)
    same += sizeof(std::uint64_t);
  while (same < shorter && codePage[columns[same]] == codePage[others[same]]) ++same;
  const std::string_view rest = columns.substr(same);
  const std::string_view restOfOthers = others.substr(same);
  if (isBlank(rest)) return !isBlank(restOfOthers);
  return !isBlank(restOfOthers) && codePage[rest.front()] < codePage[restOfOthers.front()];
}

}  // namespace keyscout
