#include "bench_catalog.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <iostream>
#include <random>
#include <stdexcept>

#include "apps/cli/files/output_file.h"
#include "apps/cli/packing/brand_index_writer.h"
#include "apps/cli/packing/brand_writer.h"
#include "apps/cli/packing/table_writer.h"
#include "apps/cli/sorting/number_order.h"
#include "base/code_page.h"

namespace keyscout::bench {
namespace {

constexpr std::string_view letters = "ABCDEFGHJKLMNPRSTUVWXYZ";
constexpr std::array<std::string_view, 20> brands = {
    "ARVIK",   "BOLTERRA", "CIRALUX", "DORNFELD", "ELMARK",  "FENWICH", "GRADEXA",
    "HALDOR",  "IRONELLE", "JUNOVA",  "KELVARA",  "LUMENTO", "MARLOND", "NORDWIN",
    "OPTRANE", "PELLAR",   "QUANTEX", "RUBENS",   "SILEXA",  "TARGONE"};

// Behind two letters 000-0000 to 999-9999.
constexpr std::uint64_t lastPart = 10'000;
constexpr std::uint64_t numbersOfPrefix = 1'000 * lastPart;
constexpr std::uint64_t allNumbers = letters.size() * letters.size() * numbersOfPrefix;

constexpr std::size_t maxTables = 1001;
constexpr std::size_t families = 500;

std::string prefix(std::size_t which) {
  return {letters[which / letters.size()], letters[which % letters.size()]};
}

std::string digits(std::uint64_t value) {
  char text[16];
  std::snprintf(text, sizeof text, "%03u-%04u", static_cast<unsigned>(value / lastPart),
                static_cast<unsigned>(value % lastPart));
  return text;
}

/// The number at `position` of a family of `size`. Four kinds of families take turns: evenly
/// spread, ever thinner, in runs of a hundred neighbours, and of letters.
std::string numberOfFamily(std::size_t family, std::size_t position, std::size_t size) {
  const std::uint64_t distance = numbersOfPrefix / size;
  switch (family % 4) {
    case 0: return prefix(family) + digits(position * distance);
    case 1: return prefix(family) + digits(position + position * position / size * (distance - 1));
    case 2: return prefix(family) + digits(position / 100 * 100 * distance + position % 100);
    default: break;
  }
  std::string text(5, ' ');
  for (auto letter = text.rbegin(); letter != text.rend(); ++letter, position /= letters.size())
    *letter = letters[position % letters.size()];
  return prefix(family) + "/" + text;
}

}  // namespace

BenchCatalog::BenchCatalog(std::size_t size, Layout layout, const std::filesystem::path& folder)
    : size_(size), layout_(layout), directory_(folder / name()) {
  if (std::filesystem::exists(directory_ / "catcontrol.txt")) return;
  std::cerr << "making a catalog of " << size_ << " numbers\n";
  std::filesystem::create_directories(directory_);
  write();
}

std::string BenchCatalog::name() const {
  return std::to_string(size_ / 1'000'000) + (layout_ == Layout::mixed ? "M" : "M-families");
}

std::string BenchCatalog::number(std::size_t position) const {
  if (layout_ == Layout::families) {
    const std::size_t size = size_ / families;
    return numberOfFamily(position / size, position % size, size);
  }
  const std::uint64_t value = position * (allNumbers / size_);
  return prefix(value / numbersOfPrefix) + digits(value % numbersOfPrefix);
}

std::string BenchCatalog::brand(std::size_t position) const {
  const std::size_t distance = size_ / numbersOfRareBrands;
  if (position % distance == distance / 2) return rareBrand;
  if (position % 2 == 1 && position < 2 * numbersOfRareBrands) return earlyBrand;
  const std::size_t unit = layout_ == Layout::mixed ? position : position / (size_ / families);
  return std::string{brands[unit * 7919 % brands.size()]};
}

std::vector<std::string> BenchCatalog::randomTexts(std::size_t count) const {
  constexpr std::size_t length = 8;
  std::mt19937_64 random{20};
  const std::size_t first = size_ / 100;
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < count; ++i) {
    texts.push_back(number(first + random() % (size_ - first)).substr(0, length));
    if (texts.back().size() < length) throw std::logic_error{texts.back() + " is too short"};
  }
  return texts;
}

/// What `pack` would make of a download of these numbers, without sorting what is in order.
void BenchCatalog::write() const {
  const std::filesystem::path indexName = "catindex.txt";
  const std::size_t linesPerTable = (size_ + maxTables - 1) / maxTables;
  const NumberOrder order{windows1252()};
  BrandWriter brandFile{directory_, order};
  BrandIndexWriter brandIndex;
  TableWriter tables{directory_, indexName, linesPerTable};
  for (std::size_t i = 0; i < size_; ++i) {
    const std::string brandName = brand(i);
    tables.add({std::to_string(i), number(i), brandName});
    brandFile.add(brandName);
    brandIndex.add(brandName, i / linesPerTable);
  }
  brandFile.close();
  brandIndex.write(directory_, indexName, tables.finish());
  const auto writeLine = [&](const char* file, std::string_view line) {
    OutputFile out{directory_ / file};
    out.write(line);
    out.close();
  };
  writeLine("download.txt", "FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]\r\n");
  writeLine("catcontrol.txt", "READY\r\n");
}

}  // namespace keyscout::bench
