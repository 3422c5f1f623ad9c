#pragma once

#include <array>
#include <string>
#include <string_view>

#include "base/code_page.h"

namespace keyscout {

/// Turns 8-bit text into keys of the same length whose byte order is the order of the text's
/// UTF-16 code units, which is the order that lookups rely on. Bytes by themselves do not have it:
/// 0x80 is U+20AC, far above 0xE9.
class NumberOrder {
 public:
  /// No two bytes of `page`, which must outlive this, may stand for the same unit.
  explicit NumberOrder(const CodePage& page);

  const CodePage& codePage() const { return page_; }

  void toKey(std::string_view text, std::string& key) const { translate(toKey_, text, key); }
  void toText(std::string_view key, std::string& text) const { translate(toText_, key, text); }
  /// A key, never above the given one, that two keys have in common exactly when their texts have
  /// the same upper-case form.
  void foldCase(std::string_view key, std::string& folded) const {
    translate(folded_, key, folded);
  }

 private:
  using Table = std::array<char, 256>;

  static void translate(const Table& table, std::string_view from, std::string& to) {
    to.resize(from.size());
    for (std::size_t i = 0; i < from.size(); ++i)
      to[i] = table[static_cast<unsigned char>(from[i])];
  }

  const CodePage& page_;
  Table toKey_{};
  Table toText_{};
  Table folded_{};
};

}  // namespace keyscout
