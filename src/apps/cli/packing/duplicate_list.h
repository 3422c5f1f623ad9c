#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "apps/cli/packing/line_origin.h"
#include "apps/cli/sorting/number_order.h"

namespace keyscout {

/// A catalog number, as a key of its order, and the line of the download that it stands on.
struct NumberOnLine {
  std::string_view key;
  std::uint64_t line;
};

/// The numbers that stand twice, told together: a person who has to correct a list wants to see
/// more than the first of them, and no more than fits the eye.
class DuplicateList {
 public:
  /// Both must outlive the list.
  DuplicateList(const NumberOrder& order, const LineOrigin& origin)
      : order_(order), origin_(origin) {}

  /// Two numbers that a list would show as one, in either order.
  void add(const NumberOnLine& a, const NumberOnLine& b);
  /// Fails with `PackError` where there are any: a line for each of the first, and how many more.
  void refuse() const;

 private:
  const NumberOrder& order_;
  const LineOrigin& origin_;
  std::uint64_t count_ = 0;
  std::multimap<std::uint64_t, std::string> first_;  // sentences by the line that they are about
};

}  // namespace keyscout
