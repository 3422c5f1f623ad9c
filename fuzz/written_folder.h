#pragma once

#include <fstream>
#include <string>
#include <string_view>

#include "support/temporary_folder.h"

namespace keyscout::fuzz {

/// A folder on the disk, for what can only work on one.
class WrittenFolder : public test::TemporaryFolder {
 public:
  void write(const std::string& name, std::string_view bytes) const {
    std::ofstream{path() / name, std::ios::binary} << bytes;
  }
  std::string read(const std::string& name) const {
    std::ifstream file{path() / name, std::ios::binary};
    return {std::istreambuf_iterator<char>{file}, {}};
  }
};

}  // namespace keyscout::fuzz
