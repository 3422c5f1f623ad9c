#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace keyscout {

/// A column of a list: where it is and what to call it in a sentence.
struct CsvColumn {
  std::size_t position = 0;  // counted from 0
  std::string text;          // column 3 "Part No"
};

/// The column that a person calls `wanted`: by its name in `names`, also in other letters, or by
/// its number, counted from 1. Names are UTF-8; there are none where the list has no header. Fails
/// with `std::invalid_argument`, whose text is a sentence, where there is no such column or more
/// than one.
CsvColumn columnCalled(const std::string& wanted, const std::vector<std::string>& names);

}  // namespace keyscout
