#pragma once

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "apps/cli/exit_status.h"
#include "apps/cli/files/path_text.h"

namespace keyscout {

/// Why a catalog could not be packed, in a sentence for the user, and the status to exit with.
class PackError : public std::runtime_error {
 public:
  PackError(const std::string& message, int exitStatus)
      : std::runtime_error(message), exitStatus_(exitStatus) {}

  int exitStatus() const { return exitStatus_; }

 private:
  int exitStatus_;
};

/// A download that is refused for what stands on a line, counted from 1.
inline PackError refusalOf(const std::filesystem::path& download, std::uint64_t line,
                           const std::string& sentence) {
  return {pathText(download) + ':' + std::to_string(line) + ": " + sentence, ExitStatus::negative};
}

}  // namespace keyscout
