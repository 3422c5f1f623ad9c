#include <gtest/gtest.h>

#include "apps/cli/arguments/suggestion.h"
#include "apps/cli/arguments/whole_number.h"

namespace keyscout::test {
namespace {

TEST(LikelyMeant, IsAFewSlipsAway) {
  const std::vector<std::string> commands{"check", "lookup", "pack", "play", "try"};
  const struct {
    const char* typed;
    const char* meant;
  } cases[] = {{"chekc", "check"}, {"lokup", "lookup"}, {"lookups", "lookup"},
               {"pakc", "pack"},   {"ply", "play"},     {"rty", "try"},
               {"tyr", "try"},     {"banana", ""},      {"x", ""},
               {"", ""},           {"checkup", "check"}};
  for (const auto& c : cases) EXPECT_EQ(likelyMeant(c.typed, commands), c.meant) << c.typed;
  EXPECT_EQ(likelyMeant("--jsno", {"--help", "--json", "--index"}), "--json");
  EXPECT_EQ(likelyMeant("check", {}), "");
}

TEST(WholeNumber, IsTakenWhereItIsWithinItsBounds) {
  const auto check = wholeNumber(1, 999);
  for (const char* const taken : {"1", "9", "10", "999"}) EXPECT_EQ(check(taken), "") << taken;
  for (const char* const refused : {"0", "1000", "-1", "+1", "", " 1", "1 ", "1.0", "1e2", "0x10",
                                    "010", "x", "99999999999999999999", "18446744073709551617"})
    EXPECT_EQ(check(refused), '"' + std::string{refused} + "\" is no whole number from 1 to 999");
  EXPECT_EQ(wholeNumber(0, 5)("0"), "");
}

}  // namespace
}  // namespace keyscout::test
