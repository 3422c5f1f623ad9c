#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace keyscout::bench {

/// A packed catalog of made-up numbers, the same ones at every run. Made at first use, which takes
/// a while, and kept in `folder`.
class BenchCatalog {
 public:
  BenchCatalog(std::size_t size, const std::filesystem::path& folder);

  std::size_t size() const { return size_; }
  const std::filesystem::path& directory() const { return directory_; }
  std::string name() const;

  /// The catalog number at `position` of the catalog's order.
  std::string number(std::size_t position) const;
  std::string brand(std::size_t position) const;

  /// `count` random numbers of the catalog, the same ones at every run.
  std::vector<std::string> randomNumbers(std::size_t count) const;

 private:
  void writeDownload(const std::filesystem::path& path) const;

  std::size_t size_;
  std::filesystem::path directory_;
};

}  // namespace keyscout::bench
