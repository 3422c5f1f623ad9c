#include "apps/cli/try/keys.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace keyscout::test
