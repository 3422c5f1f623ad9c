#pragma once

#include <string>
#include <vector>

namespace keyscout {

/// That of `words` which was most likely meant by `typed`: what is one or two slips of the fingers
/// away, a letter too many, too few, another one, or two that changed places. Empty where none is.
std::string likelyMeant(const std::string& typed, const std::vector<std::string>& words);

}  // namespace keyscout
