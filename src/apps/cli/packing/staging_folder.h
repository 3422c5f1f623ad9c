#pragma once

#include <filesystem>

namespace keyscout {

/// A folder inside a data directory in which its new files are made before they take the place of
/// the old ones. It is gone when the object is, with all that is still in it.
class StagingFolder {
 public:
  /// Removes what a killed process left there. Fails with `std::filesystem::filesystem_error`.
  explicit StagingFolder(const std::filesystem::path& directory);
  ~StagingFolder();
  StagingFolder(const StagingFolder&) = delete;
  StagingFolder& operator=(const StagingFolder&) = delete;

  /// Where to make the directory's new files.
  std::filesystem::path catalog() const { return root_ / "catalog"; }
  /// Room for anything else.
  std::filesystem::path scratch() const { return root_ / "scratch"; }

  /// Moves the files of `catalog` into the directory, over those that are there.
  void install() const;

 private:
  std::filesystem::path directory_;
  std::filesystem::path root_;
};

}  // namespace keyscout
