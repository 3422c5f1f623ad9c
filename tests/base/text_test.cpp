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
  // The first and the last of each length, and the neighbours of the surrogates.
  const std::pair<std::u16string, std::string> pairs[] = {
      {std::u16string(1, u'\0'), std::string(1, '\0')},
      {u"\x7F", "\x7F"},
      {u"\u0080", "\xC2\x80"},
      {u"\u07FF", "\xDF\xBF"},
      {u"\u0800", "\xE0\xA0\x80"},
      {u"\uD7FF", "\xED\x9F\xBF"},
      {u"\uE000", "\xEE\x80\x80"},
      {u"\uFFFF", "\xEF\xBF\xBF"},
      {u"\U00010000", "\xF0\x90\x80\x80"},
      {u"\U0001F600", "\xF0\x9F\x98\x80"},
      {u"\U0010FFFF", "\xF4\x8F\xBF\xBF"}};
  for (const auto& [text, bytes] : pairs) {
    EXPECT_EQ(toUtf8(text), bytes);
    EXPECT_EQ(fromUtf8(bytes), text) << bytes;
    EXPECT_EQ(fromUtf8("a" + bytes + "b"), u"a" + text + u"b") << bytes;
  }
  // A surrogate without its other half is no character.
  const std::string replaced = "a\xEF\xBF\xBD\x62";
  for (const char16_t half : String{0xD800, 0xDBFF, 0xDC00, 0xDFFF})
    EXPECT_EQ(toUtf8(u"a" + String{half} + u"b"), replaced);
  EXPECT_EQ(toUtf8(String{char16_t{0xD83D}}), "\xEF\xBF\xBD") << "at the end";
  EXPECT_EQ(toUtf8(String{char16_t{0xDE00}, char16_t{0xD83D}}), "\xEF\xBF\xBD\xEF\xBF\xBD")
      << "in the wrong order";
  // What is no UTF-8 is replaced byte by byte and never read past.
  for (const std::string_view bytes :
       {"\x80", "\xBF", "\xC3", "\xC1\xBF", "\xC0\xAF", "\xE2\x82", "\xE0\x9F\xBF", "\xED\xA0",
        "\xF0\x9F\x98", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF"})
    EXPECT_EQ(fromUtf8(bytes), String(bytes.size(), u'\uFFFD'));
  EXPECT_EQ(fromUtf8("\xC3(\xE2\x82(\xF0\x9F\x98("), u"\uFFFD(\uFFFD\uFFFD(\uFFFD\uFFFD\uFFFD(");
}

TEST(CodePage, KeepsAll256Bytes) {
  // Where Windows-1252 has other characters than Latin-1; bytes without one stand for themselves.
  const String upperControls =
      u"\u20AC\x81\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\x8D\u017D\x8F"
      u"\x90\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\x9D\u017E"
      u"\u0178";
  std::string bytes;
  String units;
  for (char16_t byte = 0; byte < 256; ++byte) {
    bytes += static_cast<char>(byte);
    units += byte >= 0x80 && byte < 0xA0 ? upperControls.at(byte - 0x80U) : byte;
  }
  EXPECT_EQ(windows1252().decode(bytes), units);
  String used = u"longer than what comes now";
  windows1252().decode("\x8C", used);
  EXPECT_EQ(used, u"\u0152");
}

TEST(LetterCase, MapsUnitForUnit) {
  EXPECT_EQ(upperCase(u"az09-\u00E4\u00F7\u00FF\u0153\u03C2\u044F\u0451"),
            u"AZ09-\u00C4\u00F7\u0178\u0152\u03A3\u042F\u0401");
  EXPECT_EQ(upperCase(u"\u00DF\u0130\U0001F600"), u"\u00DF\u0130\U0001F600");
  // The first and the last small letter of each alphabet or run, and their capitals.
  EXPECT_EQ(
      upperCase(u"\u00B5\u00E0\u00F6\u00F8\u00FE\u0101\u012F\u0133\u0137\u013A\u0148\u014B\u0177"
                u"\u017A\u017E\u0192\u01CE\u01DC\u01DF\u01EF\u01F9\u021F\u0223\u0233"),
      u"\u039C\u00C0\u00D6\u00D8\u00DE\u0100\u012E\u0132\u0136\u0139\u0147\u014A\u0176"
      u"\u0179\u017D\u0191\u01CD\u01DB\u01DE\u01EE\u01F8\u021E\u0222\u0232");
  EXPECT_EQ(
      upperCase(u"\u03AC\u03AD\u03AF\u03B1\u03C1\u03C3\u03CB\u03CC\u03CD\u03CE\u0430\u0450\u045F"
                u"\u0461\u0481\u048B\u04BF\u04C2\u04CE\u04CF\u04D1\u052F\u1E01\u1E95\u1EA1\u1EFF"
                u"\u24D0\u24E9\uFF41\uFF5A"),
      u"\u0386\u0388\u038A\u0391\u03A1\u03A3\u03AB\u038C\u038E\u038F\u0410\u0400\u040F"
      u"\u0460\u0480\u048A\u04BE\u04C1\u04CD\u04C0\u04D0\u052E\u1E00\u1E94\u1EA0\u1EFE"
      u"\u24B6\u24CF\uFF21\uFF3A");
  // Capitals, and what stands next to small letters, stay.
  const String neighbours =
      u"@AZ[`{\u00B4\u00B6\u00DF\u0100\u012E\u0130\u0131\u0138\u0149\u0178\u017F\u0191\u0193\u01CD"
      u"\u01DD\u01F0\u0220\u0234\u03AB\u03B0\u03CF\u042F\u0460\u0482\u048A\u04C0\u04D0\u0530\u1E96"
      u"\u1E9F\u1F00\u24CF\u24EA\uFF40\uFF5B";
  EXPECT_EQ(upperCase(neighbours), neighbours);
  EXPECT_TRUE(equalIgnoringCase(u"a\u00E9-", u"A\u00C9-"));
  EXPECT_FALSE(equalIgnoringCase(u"ab", u"a"));
  EXPECT_FALSE(equalIgnoringCase(u"ab", u"ac"));
}

}  // namespace
}  // namespace keyscout::test
