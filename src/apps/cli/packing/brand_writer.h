#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_set>

#include "apps/cli/files/output_file.h"
#include "apps/cli/sorting/number_order.h"

namespace keyscout {

/// Writes the brand file: every brand once, as it was spelled where it came first. The brands are
/// held in memory, as they are by every host.
class BrandWriter {
 public:
  /// Makes the file in `folder`; `order`, which must outlive this, knows which letters are one.
  BrandWriter(const std::filesystem::path& folder, const NumberOrder& order);

  /// A blank brand is none.
  void add(std::string_view brand);
  void close() { file_.close(); }
  std::uint64_t count() const { return known_.size(); }

 private:
  const NumberOrder& order_;
  OutputFile file_;
  std::unordered_set<std::string> known_;
  std::string folded_;
};

}  // namespace keyscout
