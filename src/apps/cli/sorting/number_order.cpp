#include "apps/cli/sorting/number_order.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

#include "base/letter_case.h"

namespace keyscout {

NumberOrder::NumberOrder(const CodePage& page) : page_(page) {
  std::array<unsigned char, 256> bytes{};
  std::iota(bytes.begin(), bytes.end(), static_cast<unsigned char>(0));
  const auto unitOf = [&](unsigned char byte) { return page[static_cast<char>(byte)]; };
  std::ranges::sort(bytes, {}, unitOf);

  for (std::size_t rank = 0; rank < bytes.size(); ++rank) {
    toText_[rank] = static_cast<char>(bytes[rank]);
    toKey_[bytes[rank]] = static_cast<char>(rank);
    // All forms of a letter fold to the first of them. Its capital would do as well, but the code
    // page does not hold everyone's.
    const auto form =
        std::ranges::find(bytes, upperCase(unitOf(bytes[rank])),
                          [&](unsigned char byte) { return upperCase(unitOf(byte)); });
    folded_[rank] = static_cast<char>(form - bytes.begin());
  }
}

}  // namespace keyscout
