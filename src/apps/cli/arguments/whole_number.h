#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace keyscout {

/// A check of an option's value: what is wrong with it, empty where it is a decimal number from
/// `least` to `most`. The command line's own conversion takes what is too large for the largest
/// number that there is, and a leading 0 for an octal number.
std::function<std::string(const std::string&)> wholeNumber(std::uint64_t least, std::uint64_t most);

}  // namespace keyscout
