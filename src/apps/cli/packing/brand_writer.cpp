#include "apps/cli/packing/brand_writer.h"

#include "shared/data_format/directory_files.h"

namespace keyscout {

BrandWriter::BrandWriter(const std::filesystem::path& folder, const NumberOrder& order)
    : order_(order), file_(folder / DirectoryFiles::brands) {}

void BrandWriter::add(std::string_view brand) {
  if (brand.empty()) return;
  order_.toKey(brand, folded_);
  order_.foldCase(folded_, folded_);
  if (!known_.insert(folded_).second) return;
  file_.write(brand);
  file_.write("\r\n");
}

}  // namespace keyscout
