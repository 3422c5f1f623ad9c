#pragma once

#include <filesystem>

#include "base/text.h"

namespace keyscout::test {

/// A folder of its own under the system's temporary folder, gone with the object.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  /// As a host would set it.
  String hostPath() const;

 private:
  std::filesystem::path path_;
};

}  // namespace keyscout::test
