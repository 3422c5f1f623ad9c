#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace keyscout {

/// An error makes a lookup fail or list the wrong numbers; a warning keeps single numbers or brands
/// from being found.
enum class Severity { error, warning };

/// Something in a data directory that is not as lookups need it. What is wrong with a file as a
/// whole stands on its line 1.
struct Finding {
  std::string file;
  std::uint64_t line = 1;
  Severity severity = Severity::error;
  std::string sentence;
};

using FindingReport = std::function<void(const Finding&)>;

}  // namespace keyscout
