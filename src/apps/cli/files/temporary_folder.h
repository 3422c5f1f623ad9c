#pragma once

#include <filesystem>
#include <string>

namespace keyscout {

/// An empty folder of its own in the system's place for temporary files, gone with all that is in
/// it when the object is. Fails with `std::filesystem::filesystem_error` where none can be made.
class TemporaryFolder {
 public:
  /// `name` begins the folder's name.
  explicit TemporaryFolder(const std::string& name);
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace keyscout
