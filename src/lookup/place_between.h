#pragma once

#include <string_view>

namespace keyscout {

/// How far `key` stands on the way from the catalog number `first` to the number `last`, from 0 to
/// 1, were the numbers between them spread evenly: a guess, for whoever looks for the key among
/// them. All as they stand in a file, without blanks in front.
[[nodiscard]] double placeBetween(std::string_view first, std::string_view last,
                                  std::string_view key);

}  // namespace keyscout
