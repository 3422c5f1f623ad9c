#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace keyscout::bench {

enum class Layout {
  mixed,    // evenly spread numbers, which the twenty usual brands share one by one
  families  // families of numbers, each of one brand and with a spread of its own
};

/// A data directory of made-up numbers, the same ones at every run. Made at first use, which takes
/// a while, and kept in `folder`.
class BenchCatalog {
 public:
  /// Stands beside the usual brands, five times in the catalog.
  static constexpr const char* rareBrand = "RAREST";
  /// The same, but all five are among the first numbers.
  static constexpr const char* earlyBrand = "EARLIEST";
  static constexpr std::size_t numbersOfRareBrands = 5;

  BenchCatalog(std::size_t size, Layout layout, const std::filesystem::path& folder);

  std::size_t size() const { return size_; }
  const std::filesystem::path& directory() const { return directory_; }
  std::string name() const;

  /// The catalog number at `position` of the catalog's order.
  std::string number(std::size_t position) const;
  std::string brand(std::size_t position) const;

  /// The beginnings of `count` random numbers, the same ones at every run, none of them among the
  /// first hundredth. All are of one length: a control keeps its list for a text that is longer
  /// than the one before, and looks nothing up where it is full.
  std::vector<std::string> randomTexts(std::size_t count) const;

 private:
  void write() const;

  std::size_t size_;
  Layout layout_;
  std::filesystem::path directory_;
};

}  // namespace keyscout::bench
