#include "base/numbers.h"

#include <gtest/gtest.h>

#include <limits>

#include "base/utf8.h"
#include "base/variant.h"
#include "support/error_of.h"

namespace keyscout::test {
namespace {

TEST(Numbers, ParsesPlainNumbers) {
  struct Case {
    StringView text;
    std::int32_t value;
    std::int32_t error;
  };
  constexpr std::int32_t mismatch = 13;
  constexpr std::int32_t overflow = 6;
  const Case cases[] = {{u"0", 0, 0},
                        {u"0000000042", 42, 0},
                        {u"-7", -7, 0},
                        {u"+7", 7, 0},
                        {u"2147483647", 2147483647, 0},
                        {u"-2147483648", std::numeric_limits<std::int32_t>::min(), 0},
                        {u"2147483648", 0, overflow},
                        {u"99999999999999999999999", 0, overflow},
                        {u"", 0, mismatch},
                        {u"-", 0, mismatch},
                        {u"1 2", 0, mismatch},
                        {u"99999999999x", 0, mismatch},
                        {u"\uFF11", 0, mismatch}};
  for (const Case& c : cases) {
    EXPECT_EQ(errorOf([&] { EXPECT_EQ(parseInt32(c.text), c.value); }), c.error) << toUtf8(c.text);
  }
}

TEST(Variant, ConvertsToANumberOrMismatches) {
  struct Case {
    Variant value;
    std::int32_t expected;
    bool converts;
  };
  const Case cases[] = {{std::int32_t{7}, 7, true},
                        {2.5, 2, true},
                        {3.5, 4, true},
                        {String{u" 255 "}, 255, true},
                        {String{u"-1.4"}, -1, true},
                        {String{u"red"}, 0, false},
                        {String{u""}, 0, false},
                        {std::monostate{}, 0, false},
                        {2147483647.4, 2147483647, true},
                        {2147483647.6, 0, false},
                        {-2147483648.4, std::numeric_limits<std::int32_t>::min(), true},
                        {-2147483648.6, 0, false},
                        {String{u"nan"}, 0, false},
                        {String{u"12 monkeys"}, 0, false}};
  for (const Case& c : cases)
    EXPECT_EQ(errorOf([&] { EXPECT_EQ(toInt32(c.value), c.expected); }), c.converts ? 0 : 13);
}

}  // namespace
}  // namespace keyscout::test
