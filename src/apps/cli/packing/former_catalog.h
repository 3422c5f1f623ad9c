#pragma once

#include <filesystem>
#include <set>
#include <vector>

namespace keyscout {

/// Which files of a directory belong to the catalog that it holds before a pack: the control file,
/// the brands, the index, the tables that the index names, and the download. Only those may give
/// way to new ones; whatever else lies there is somebody else's.
class FormerCatalog {
 public:
  using Names = std::set<std::filesystem::path>;

  /// Looks for the catalog's files. Its index may be named `indexName`; `incoming` is the download
  /// to be packed, which may lie in the directory as well. With `force` files of other origin may
  /// be replaced, though never taken away.
  ///
  /// Fails with `PackError` where the directory holds files but no catalog and nobody forces it.
  FormerCatalog(const std::filesystem::path& directory, const std::filesystem::path& indexName,
                const std::filesystem::path& incoming, bool force);

  /// False where the directory is empty.
  bool isThere() const { return isThere_; }
  /// Fails with `PackError` where a file that must not be replaced has one of these names.
  void makeWayFor(const Names& names) const;
  /// The catalog's files that have none of these names.
  std::vector<std::filesystem::path> without(const Names& names) const;

 private:
  void findIndex(const std::filesystem::path& indexName);
  void takeIndex(const std::filesystem::path& name);
  void findDownload(const std::filesystem::path& incoming);

  std::filesystem::path directory_;
  bool force_;
  bool isThere_ = false;
  Names own_;
  Names replaceable_;
};

}  // namespace keyscout
