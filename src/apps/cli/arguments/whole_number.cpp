#include "apps/cli/arguments/whole_number.h"

#include <charconv>

namespace keyscout {

std::function<std::string(const std::string&)> wholeNumber(std::uint64_t least,
                                                           std::uint64_t most) {
  return [=](const std::string& text) -> std::string {
    std::uint64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [read, failure] = std::from_chars(text.data(), end, number);
    const bool isNumber = read == end && failure != std::errc::invalid_argument;
    const bool isExact = isNumber && (text.size() == 1 || text.front() != '0');
    if (isExact && failure == std::errc{} && number >= least && number <= most) return {};
    return '"' + text + "\" is no whole number from " + std::to_string(least) + " to " +
           std::to_string(most);
  };
}

}  // namespace keyscout
