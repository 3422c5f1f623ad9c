#pragma once

#include <stdexcept>
#include <string>

#include "apps/cli/exit_status.h"
#include "apps/cli/files/path_text.h"

namespace keyscout {

/// Why a catalog could not be packed, in sentences for the user, one a line, and the status to exit
/// with.
class PackError : public std::runtime_error {
 public:
  PackError(const std::string& message, int exitStatus)
      : std::runtime_error(message), exitStatus_(exitStatus) {}

  int exitStatus() const { return exitStatus_; }

 private:
  int exitStatus_;
};

}  // namespace keyscout
