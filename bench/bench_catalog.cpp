#include "bench_catalog.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <random>
#include <stdexcept>

#include "apps/cli/packing/pack_catalog.h"

namespace keyscout::bench {
namespace {

constexpr std::string_view letters = "ABCDEFGHJKLMNPRSTUVWXYZ";
constexpr std::array<std::string_view, 20> brands = {
    "ARVIK",   "BOLTERRA", "CIRALUX", "DORNFELD", "ELMARK",  "FENWICH", "GRADEXA",
    "HALDOR",  "IRONELLE", "JUNOVA",  "KELVARA",  "LUMENTO", "MARLOND", "NORDWIN",
    "OPTRANE", "PELLAR",   "QUANTEX", "RUBENS",   "SILEXA",  "TARGONE"};

// AA000-0000 to ZZ999-9999, of which every catalog takes numbers at equal distances.
constexpr std::uint64_t lastPart = 10'000;
constexpr std::uint64_t middlePart = 1'000;
constexpr std::uint64_t allNumbers = letters.size() * letters.size() * middlePart * lastPart;

std::string padded(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

}  // namespace

BenchCatalog::BenchCatalog(std::size_t size, const std::filesystem::path& folder)
    : size_(size), directory_(folder / std::to_string(size)) {
  std::string status;
  std::ifstream{directory_ / "catcontrol.txt"} >> status;
  if (status == "READY") return;

  std::cerr << "making a catalog of " << size_ << " numbers\n";
  std::filesystem::create_directories(directory_);
  const auto download = directory_ / "download.txt";
  writeDownload(download);
  PackOptions options;
  options.download = download;
  options.directory = directory_;
  packCatalog(options);
}

std::string BenchCatalog::name() const { return std::to_string(size_ / 1'000'000) + "M"; }

std::string BenchCatalog::number(std::size_t position) const {
  const std::uint64_t value = position * (allNumbers / size_);
  const std::uint64_t head = value / (middlePart * lastPart);
  char text[16];
  std::snprintf(text, sizeof text, "%c%c%03u-%04u", letters[head / letters.size()],
                letters[head % letters.size()],
                static_cast<unsigned>(value / lastPart % middlePart),
                static_cast<unsigned>(value % lastPart));
  return text;
}

std::string BenchCatalog::brand(std::size_t position) const {
  return std::string{brands[position * 7919 % brands.size()]};
}

std::vector<std::string> BenchCatalog::randomNumbers(std::size_t count) const {
  std::mt19937_64 random{20};
  std::vector<std::string> numbers;
  for (std::size_t i = 0; i < count; ++i) numbers.push_back(number(random() % size_));
  return numbers;
}

void BenchCatalog::writeDownload(const std::filesystem::path& path) const {
  std::ofstream out{path, std::ios::binary};
  out << "FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]\r\n";
  // A stride that no size divides brings every position once, out of order.
  constexpr std::size_t stride = 7'654'321;
  for (std::size_t i = 0, position = 0; i < size_; ++i, position = (position + stride) % size_)
    out << padded(std::to_string(position), 10) << padded(number(position), 60)
        << padded(brand(position), 50) << "\r\n";
  if (!out.flush()) throw std::runtime_error{"cannot write " + path.string()};
}

}  // namespace keyscout::bench
