#include "apps/cli/sorting/number_order.h"

#include <gtest/gtest.h>

#include <string>

#include "base/code_page.h"
#include "base/letter_case.h"

namespace keyscout::test {
namespace {

TEST(NumberOrder, AgreesWithTheCodePageAboutEveryTwoBytes) {
  const NumberOrder order{windows1252()};
  std::string keys[256];
  std::string folded[256];
  for (int byte = 0; byte < 256; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    std::string back;
    order.toKey(text, keys[byte]);
    order.toText(keys[byte], back);
    EXPECT_EQ(back, text);
    order.foldCase(keys[byte], folded[byte]);
  }
  for (int a = 0; a < 256; ++a) {
    ASSERT_LE(folded[a], keys[a]) << a;
    for (int b = 0; b < 256; ++b) {
      const char16_t unitA = windows1252()[static_cast<char>(a)];
      const char16_t unitB = windows1252()[static_cast<char>(b)];
      ASSERT_EQ(keys[a] < keys[b], unitA < unitB) << a << ' ' << b;
      ASSERT_EQ(folded[a] == folded[b], upperCase(unitA) == upperCase(unitB)) << a << ' ' << b;
    }
  }
}

}  // namespace
}  // namespace keyscout::test
