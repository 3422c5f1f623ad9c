#include "base/text.h"

#include <gtest/gtest.h>

#include <utility>

#include "base/code_page.h"
#include "base/letter_case.h"
#include "base/utf8.h"

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
}

}  // namespace
}  // namespace keyscout::test
