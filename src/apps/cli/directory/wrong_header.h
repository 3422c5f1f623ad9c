#pragma once

#include <string>
#include <string_view>

namespace keyscout {

/// What stands in a download's first line, given in its bytes, instead of the header: words that
/// follow "but".
std::string wrongHeader(std::string_view firstLine);

}  // namespace keyscout
