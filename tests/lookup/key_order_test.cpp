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
    // Often with a beginning in common, up to and beyond the bytes that are compared at once.
    const std::string start = i % 3 == 0 ? "" : draw(9);
    std::string field = start + draw(i % 3 == 1 ? 2 : 12);
    if (i % 2 == 0) field.resize(60, ' ');
    const String key = windows1252().decode(start + draw(i % 3 == 1 ? 2 : 10));
    const String number{trimmed(windows1252().decode(field))};
    const KeyOrder order{key, windows1252()};
    ASSERT_EQ(order.isAbove(field), key > number) << toUtf8(key) << '|' << field << '|';
  }
}

TEST(KeyOrder, OfTwoNumbersIsThatOfTheTrimmedTexts) {
  const std::string bytes{" A-b\x80\xE9\x09\x9F"};
  std::mt19937 random{7};
  const auto draw = [&](std::size_t longest) {
    std::string text(random() % (longest + 1), ' ');
    for (char& byte : text) byte = bytes[random() % bytes.size()];
    if (random() % 2 == 0) text.resize(20, ' ');
    return text;
  };
  const auto textOf = [](const std::string& field) {
    return String{trimmed(windows1252().decode(field))};
  };
  for (int i = 0; i < 100'000; ++i) {
    const std::string one = draw(6);
    const std::string other = draw(6);
    ASSERT_EQ(isNumberBelow(one, other, windows1252()), textOf(one) < textOf(other))
        << one << '|' << other << '|';
  }
}

}  // namespace
}  // namespace keyscout::test
