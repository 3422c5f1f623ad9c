#pragma once

#include <filesystem>

namespace keyscout {

/// A folder in which the new files of a data directory are made before they take the place of the
/// old ones. It is gone when the object is, with all that is still in it.
class StagingFolder {
 public:
  /// Makes the folder anew, without what a killed process left in it. Fails with
  /// `std::filesystem::filesystem_error`.
  explicit StagingFolder(std::filesystem::path root);
  ~StagingFolder();
  StagingFolder(const StagingFolder&) = delete;
  StagingFolder& operator=(const StagingFolder&) = delete;

  const std::filesystem::path& root() const { return root_; }
  /// Where to make the directory's new files.
  std::filesystem::path catalog() const { return root_ / "catalog"; }
  /// Room for anything else.
  std::filesystem::path scratch() const { return root_ / "scratch"; }

  /// From now on the folder outlives the object.
  void keep() { isKept_ = true; }

 private:
  std::filesystem::path root_;
  bool isKept_ = false;
};

}  // namespace keyscout
