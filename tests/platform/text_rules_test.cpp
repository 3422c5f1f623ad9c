#include <gtest/gtest.h>

#include "platform/local/portable_text_rules.h"

namespace keyscout::test {
namespace {

TEST(PortableTextRules, OrderByTheUpperCaseForms) {
  const PortableTextRules rules;
  EXPECT_EQ(rules.compareIgnoringCase(u"ab", u"AB"), 0);
  EXPECT_LT(rules.compareIgnoringCase(u"a-", u"AB"), 0);
  EXPECT_GT(rules.compareIgnoringCase(u"abc", u"AB"), 0);
  EXPECT_LT(rules.compareIgnoringCase(u"AB", u"abc"), 0);
  EXPECT_GT(rules.compareIgnoringCase(u"_", u"a"), 0);
  EXPECT_EQ(rules.upperCase(u"ab-\u00E9"), u"AB-\u00C9");
}

}  // namespace
}  // namespace keyscout::test
