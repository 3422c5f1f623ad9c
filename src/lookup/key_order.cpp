#include "lookup/key_order.h"

#include <algorithm>
#include <array>

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

}  // namespace keyscout
