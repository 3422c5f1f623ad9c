#include <gtest/gtest.h>

#include <clocale>

#include "apps/cli/try/keys.h"
#include "apps/cli/try/text_columns.h"
#include "platform/widgets.h"

namespace keyscout::test {
namespace {

TEST(Keys, CharactersHaveTheCodesOfTheirKeys) {
  const struct {
    char32_t character;
    std::int16_t keyCode;
    std::int16_t shift;
  } cases[] = {{U'a', 65, 0},  {U'A', 65, 1},  {U'7', 55, 0},   {U'(', 57, 1},  {U'&', 55, 1},
               {U'.', 190, 0}, {U'-', 189, 0}, {U'\'', 222, 0}, {U'%', 53, 1},  {U' ', 32, 0},
               {U'$', 52, 1},  {U'#', 51, 1},  {U'"', 222, 1},  {U'ä', 231, 0}, {U'日', 231, 0}};
  for (const auto& c : cases) {
    const Input input = keyOf(c.character);
    EXPECT_EQ(input.keyCode, c.keyCode) << static_cast<std::uint32_t>(c.character);
    EXPECT_EQ(input.shift, c.shift) << static_cast<std::uint32_t>(c.character);
    EXPECT_EQ(input.character, static_cast<char16_t>(c.character));
  }
}

TEST(Keys, NoCharacterHasTheCodeOfAKeyThatMovesOrErases) {
  for (char32_t character = U' '; character < 0x250; ++character) {
    const std::int16_t code = keyOf(character).keyCode;
    EXPECT_FALSE(code >= KeyCodes::pageUp && code <= KeyCodes::deleteKey) << code;
  }
}

TEST(Keys, CharactersAboveTheBasicPlaneAreTwoUnits) {
  const Input input = keyOf(U'\U0001F529');
  EXPECT_EQ(input.character, 0xD83D);
  EXPECT_EQ(input.secondUnit, 0xDD29);
}

TEST(TextColumns, CountsColumnsNotCharacters) {
  if (!std::setlocale(LC_ALL, "C.UTF-8")) GTEST_SKIP() << "there is no UTF-8 locale";
  const struct {
    StringView text;
    int columns;
    std::wstring inFour;
  } cases[] = {{u"", 0, L"    "},
               {u"ab", 2, L"ab  "},
               {u"abcdef", 6, L"abcd"},
               {u"日本", 4, L"日本"},
               {u"a日本", 5, L"a日 "},
               {u"e\u0301x", 2, L"e\u0301x  "},
               {u"\U0001F529!", 3, L"\U0001F529! "},
               {u"a\tb", 3, L"a\uFFFDb "},
               {StringView{u"\U0001F529", 1}, 1, L"\uFFFD   "}};
  for (const auto& c : cases) {
    EXPECT_EQ(columnsOf(toCodePoints(c.text)), c.columns);
    EXPECT_EQ(fitted(toCodePoints(c.text), 4), c.inFour);
  }
  std::setlocale(LC_ALL, "C");
}

}  // namespace
}  // namespace keyscout::test
