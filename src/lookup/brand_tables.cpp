#include "lookup/brand_tables.h"

#include "shared/data_format/directory_files.h"

namespace keyscout {

bool BrandTables::admitNothingOf(std::int16_t position, StringView path) noexcept {
  try {
    if (!isRead_) {
      isRead_ = true;
      readBrandIndex();
    }
    const auto table = static_cast<std::size_t>(position);
    if (!isTrusted_ || admitted_.test(table)) return false;
    const FileStamp stamp = platform_.files.stamp(path);
    return stamp.size == sizes_.at(table) && stamp.lastModified < written_;
  } catch (...) {
    return false;
  }
}

void BrandTables::readBrandIndex() {
  if (brands_.areAll() || !module_.catalogIndexDigest) return;
  const String path = module_.KeyscoutDirectory + String{DirectoryFiles::brandIndex};
  const FileStamp stamp = platform_.files.stamp(path);
  if (stamp.size > BrandIndexFormat::maxSize) return;

  const auto file = platform_.files.open(path);
  BrandIndexReader reader{*file};
  if (reader.indexDigest() != module_.catalogIndexDigest ||
      reader.tableSizes().size() != static_cast<std::size_t>(module_.catalogTableCount))
    return;
  String name;
  while (const auto brand = reader.nextBrand()) {
    platform_.codePage.decode(brand->name, name);
    if (brands_.include(name)) admitted_ |= brand->tables;
  }
  sizes_ = reader.tableSizes();
  written_ = stamp.lastModified;
  isTrusted_ = reader.isWhole();
}

}  // namespace keyscout
