#include "apps/cli/check/brand_index_check.h"

#include "base/error.h"
#include "base/utf8.h"
#include "shared/data_format/directory_files.h"
#include "shared/data_format/line_digest.h"

namespace keyscout {
namespace {

const std::string fileName = toUtf8(DirectoryFiles::brandIndex);

std::uint64_t digestOf(SequentialFile& file) {
  LineDigest digest;
  while (!file.atEnd()) digest.add(file.readLine());
  return digest.value();
}

}  // namespace

void BrandIndexCheck::note(std::string_view brand, std::size_t position) {
  if (position >= TableSet{}.size()) return;
  if (!latestTables_ || brand != latest_) {
    latest_ = brand;
    latestTables_ = &held_[latest_];
  }
  latestTables_->set(position);
}

void BrandIndexCheck::check(const std::vector<IndexedTable>& tables) const {
  if (!directory_.exists(fileName)) return;
  try {
    const auto file = directory_.open(fileName);
    BrandIndexReader reader{*file};
    if (!reader.indexDigest()) {
      warn(1, "is no brand index");
    } else if (*reader.indexDigest() != digestOf(*directory_.open(directory_.names.indexFile)) ||
               reader.tableSizes().size() != tables.size()) {
      warn(2, "was not made for this " + directory_.names.indexFile);
    } else {
      compare(reader, tables);
    }
  } catch (const Error& failure) {
    warn(1, std::string{"cannot be read: "} + failure.what());
  }
}

void BrandIndexCheck::compare(BrandIndexReader& reader,
                              const std::vector<IndexedTable>& tables) const {
  Brands named;
  std::uint64_t line = 3;
  for (; const auto brand = reader.nextBrand(); ++line)
    named[std::string{brand->name}] |= brand->tables;
  if (!reader.isWhole()) {
    warn(line + 1, "is damaged here or above");
    return;
  }
  const TableSet unchanged = ~changedTables(reader, tables);
  for (const auto& [brand, held] : held_) {
    const TableSet missing = held & ~named[brand] & unchanged;
    if (missing.any())
      directory_.error(fileName, 1,
                       "does not tell that brand " + directory_.inQuotes(brand) +
                           " stands in table " + BrandIndexFormat::tablesText(missing) +
                           "; a list of that brand misses numbers");
  }
}

/// The tables that lookups read whatever the brand index tells of them.
TableSet BrandIndexCheck::changedTables(const BrandIndexReader& reader,
                                        const std::vector<IndexedTable>& tables) const {
  TableSet changed;
  const auto written = directory_.stamp(fileName).lastModified;
  for (std::size_t i = 0; i < tables.size(); ++i) {
    try {
      const FileStamp stamp = directory_.stamp(tables[i].fileName);
      if (stamp.size == reader.tableSizes()[i] && stamp.lastModified < written) continue;
      directory_.warning(tables[i].fileName, 1,
                         "was changed after " + fileName +
                             " was written; lookups read it whatever brand they look for");
    } catch (const Error&) {
      // Reading the table has told of it.
    }
    changed.set(i);
  }
  return changed;
}

void BrandIndexCheck::warn(std::uint64_t line, const std::string& sentence) const {
  directory_.warning(fileName, line,
                     sentence + "; lookups do without it and read every table for a brand");
}

}  // namespace keyscout
