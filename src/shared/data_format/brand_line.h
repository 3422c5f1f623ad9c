#pragma once

#include <string_view>

#include "base/text.h"
#include "shared/data_format/record_columns.h"

namespace keyscout {

/// One line of the brand file, in bytes or in code units: the brand's code, and a text about it
/// that nothing reads. The text's columns begin within those of the code.
template <class Char>
class BrandLine {
 public:
  explicit BrandLine(std::basic_string_view<Char> line) : line_(line) {}

  /// Both trimmed; whatever a shorter line has of them.
  std::basic_string_view<Char> code() const { return trimmed(columns(line_, codeColumns)); }
  std::basic_string_view<Char> text() const { return trimmed(columns(line_, textColumns)); }

  static constexpr Columns codeColumns{1, RecordColumns::brand.width};
  static constexpr Columns textColumns{11, 60};

 private:
  std::basic_string_view<Char> line_;
};

}  // namespace keyscout
