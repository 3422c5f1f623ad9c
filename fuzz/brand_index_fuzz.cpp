// The brand index: what is written is read back, and no changed byte passes for what was written.

#include <algorithm>
#include <utility>

#include "fuzz_input.h"
#include "shared/data_format/brand_index.h"
#include "support/memory_files.h"

using namespace keyscout;

namespace {

using Brands = std::vector<std::pair<std::string, TableSet>>;

struct Found {
  std::optional<std::uint64_t> indexDigest;
  std::vector<std::uint64_t> sizes;
  Brands brands;
  bool isWhole = false;
};

Found readBack(std::string_view bytes) {
  test::MemoryFiles files;
  files.put(u"brandindex.txt", bytes);
  const auto file = files.open(u"brandindex.txt");
  BrandIndexReader reader{*file};
  Found found;
  found.indexDigest = reader.indexDigest();
  found.sizes = reader.tableSizes();
  while (const auto brand = reader.nextBrand())
    found.brands.emplace_back(brand->name, brand->tables);
  found.isWhole = reader.isWhole();
  return found;
}

TableSet takeTables(fuzz::FuzzInput& input, std::size_t count) {
  TableSet tables;
  for (std::size_t spans = 1 + input.below(4); spans != 0; --spans) {
    const std::size_t first = input.below(count);
    const std::size_t end = std::min(count, first + 1 + input.below(9));
    for (std::size_t i = first; i < end; ++i) tables.set(i);
  }
  return tables;
}

Brands takeBrands(fuzz::FuzzInput& input, std::size_t tables) {
  Brands brands;
  while (!input.isAtEnd() && brands.size() < 50) {
    const TableSet held = takeTables(input, tables);
    std::string name{input.section()};
    std::ranges::replace_if(
        name, [](char c) { return c == '\n' || c == '\r' || c == 26; }, 'x');
    brands.emplace_back(name, held);
  }
  return brands;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::FuzzInput input{data, size};
  (void)readBack(input.rest());

  const std::size_t place = input.below(256) * 256 + input.below(256);
  const auto change = static_cast<unsigned char>(1 + input.below(255));
  const std::vector<std::uint64_t> sizes(1 + input.below(250), 122 * input.below(256));
  const Brands brands = takeBrands(input, sizes.size());
  std::string bytes = "BRANDINDEX 1\r\nINDEX 0123456789abcdef\r\nSIZES ";
  for (const std::uint64_t bytesOfTable : sizes) bytes += std::to_string(bytesOfTable) + ' ';
  bytes.back() = '\r';
  bytes += '\n';
  for (const auto& [name, tables] : brands)
    bytes += BrandIndexFormat::tablesText(tables) + ' ' + name + "\r\n";
  LineDigest digest;
  for (const std::string& line : fuzz::linesOf(bytes)) digest.add(line);
  const std::size_t digested = bytes.size();
  bytes += "END " + BrandIndexFormat::digestText(digest.value()) + "\r\n";

  const Found found = readBack(bytes);
  fuzz::require(found.isWhole, "what is written is whole");
  fuzz::require(found.indexDigest == 0x0123456789ABCDEF, "the digest of the index");
  fuzz::require(found.sizes == sizes, "the sizes");
  fuzz::require(found.brands == brands, "the brands");

  char& changed = bytes[place % digested];
  const bool wasReturn = changed == '\r';  // what ends a line may be changed to LF
  changed = static_cast<char>(static_cast<unsigned char>(changed) ^ change);
  if (!(wasReturn && changed == '\n')) fuzz::require(!readBack(bytes).isWhole, "a changed byte");
  return 0;
}
