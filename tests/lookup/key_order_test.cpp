#include "lookup/key_order.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "base/utf8.h"

namespace keyscout::test {
namespace {

TEST(KeyOrder, AgreesWithTheOrderOfTheTrimmedTexts) {
  // Few characters, so that equal beginnings, blanks and bytes out of order come often.
  const std::string bytes{" A-b\x80\xE9\x09\x9F"};
  std::mt19937 random{7};
  const auto draw = [&](std::size_t longest) {
    std::string text(random() % (longest + 1), ' ');
    for (char& byte : text) byte = bytes[random() % bytes.size()];
    return text;
  };
  for (int i = 0; i < 200'000; ++i) {
    std::string field = draw(12);
    if (i % 2 == 0) field.resize(60, ' ');
    const String key = windows1252().decode(draw(10));
    const String number{trimmed(windows1252().decode(field))};
    const KeyOrder order{key, windows1252()};
    ASSERT_EQ(order.isAbove(field), key > number) << toUtf8(key) << '|' << field << '|';
  }
}

}  // namespace
}  // namespace keyscout::test
