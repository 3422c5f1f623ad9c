#include <gtest/gtest.h>

#include <limits>
#include <new>
#include <stdexcept>
#include <system_error>

#include "base/code_page.h"
#include "base/error.h"
#include "base/keyed_collection.h"
#include "base/letter_case.h"
#include "base/numbers.h"
#include "base/text.h"
#include "base/utf8.h"
#include "base/variant.h"
#include "platform/local/portable_text_rules.h"
#include "support/stage.h"

namespace keyscout::test {
namespace {

TEST(Text, TrimsSpacesAlone) {
  const std::pair<StringView, StringView> cases[] = {{u"  a b ", u"a b"},
                                                     {u"   ", u""},
                                                     {u"", u""},
                                                     {u"\ta\t ", u"\ta\t"},
                                                     {u" \u00A0", u"\u00A0"}};
  for (const auto& [text, expected] : cases) EXPECT_EQ(trimmed(text), expected);
}

TEST(Text, TakesWhatALineHasOfItsColumns) {
  const StringView line = u"abcdef";
  EXPECT_EQ(columns(line, {1, 3}), u"abc");
  EXPECT_EQ(columns(line, {5, 10}), u"ef");
  EXPECT_EQ(columns(line, {7, 10}), u"");
  EXPECT_EQ(columns(line, {100, 10}), u"");
  EXPECT_EQ(lastColumns(line, 2), u"ef");
  EXPECT_EQ(lastColumns(line, 50), line);
}

TEST(Text, ParsesPlainNumbers) {
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

TEST(Text, ComesThroughUtf8AndBack) {
  for (const StringView text :
       {StringView{u"plain"}, StringView{u"\u00E9\u20AC\uFFFD"}, StringView{u"\U0001F600"}})
    EXPECT_EQ(fromUtf8(toUtf8(text)), text);
  EXPECT_EQ(toUtf8(u"a" + String{char16_t{0xD83D}} + u"b"),
            "a\xEF\xBF\xBD"
            "b");
  // What is no UTF-8 is replaced byte by byte and never read past.
  for (const std::string_view bytes :
       {"\xC3", "\xE2\x82", "\xC0\xAF", "\xF5\x80\x80\x80", "\xED\xA0"})
    EXPECT_EQ(fromUtf8(bytes), String(bytes.size(), u'\uFFFD'));
}

TEST(CodePage, KeepsAll256Bytes) {
  String units;
  for (int byte = 0; byte < 256; ++byte) {
    const char16_t unit = windows1252()[static_cast<char>(byte)];
    EXPECT_EQ(units.find(unit), units.npos) << byte;
    units += unit;
  }
  EXPECT_EQ(windows1252().decode("\x80\x81\x9F\xA0\xFF"), u"\u20AC\u0081\u0178\u00A0\u00FF");
}

TEST(LetterCase, MapsUnitForUnit) {
  EXPECT_EQ(upperCase(u"az09-\u00E4\u00F7\u00FF\u0153\u03C2\u044F\u0451"),
            u"AZ09-\u00C4\u00F7\u0178\u0152\u03A3\u042F\u0401");
  EXPECT_EQ(upperCase(u"\u00DF\u0130\U0001F600"), u"\u00DF\u0130\U0001F600");
  const PortableTextRules rules;
  EXPECT_EQ(rules.compareIgnoringCase(u"ab", u"AB"), 0);
  EXPECT_LT(rules.compareIgnoringCase(u"a-", u"AB"), 0);
  EXPECT_GT(rules.compareIgnoringCase(u"abc", u"AB"), 0);
  EXPECT_GT(rules.compareIgnoringCase(u"_", u"a"), 0);
}

TEST(KeyedCollection, KeepsOrderAndComparesKeysWithoutCase) {
  KeyedCollection<int> items;
  items.add(1, u"B");
  items.add(2);
  items.add(3, u"a");
  EXPECT_EQ(errorOf([&] { items.add(4, u"b"); }), 457);
  EXPECT_EQ(items.count(), 3U);
  EXPECT_EQ(items.item(u"A"), 3);
  EXPECT_EQ(items.item(std::size_t{2}), 2);
  EXPECT_EQ(errorOf([&] { items.item(u"c"); }), 5);
  EXPECT_EQ(errorOf([&] { items.item(std::size_t{0}); }), 9);
  EXPECT_EQ(errorOf([&] { items.item(std::size_t{4}); }), 9);
  items.remove(u"b");
  EXPECT_EQ(errorOf([&] { items.remove(u"b"); }), 5);
  items.add(5, u"B");
  std::vector<int> order;
  for (const auto& entry : items) order.push_back(entry.item);
  EXPECT_EQ(order, (std::vector{2, 3, 5}));
}

TEST(Error, TurnsForeignExceptionsIntoPlatformNumbers) {
  const auto numberFor = [](const auto& exception) {
    try {
      throw exception;
    } catch (...) {
      return currentError().number();
    }
  };
  EXPECT_EQ(numberFor(std::bad_alloc{}), 7);
  EXPECT_EQ(numberFor(std::length_error{""}), 7);
  EXPECT_EQ(numberFor(std::out_of_range{""}), 9);
  EXPECT_EQ(numberFor(std::system_error{std::error_code{}}), 75);
  EXPECT_EQ(numberFor(42), 5);
  EXPECT_EQ(numberFor(Error{-5, u"s", u"d"}), -5);
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
                        {3e9, 0, false},
                        {String{u"nan"}, 0, false},
                        {String{u"12 monkeys"}, 0, false}};
  for (const Case& c : cases)
    EXPECT_EQ(errorOf([&] { EXPECT_EQ(toInt32(c.value), c.expected); }), c.converts ? 0 : 13);
}

}  // namespace
}  // namespace keyscout::test
