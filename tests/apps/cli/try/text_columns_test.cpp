#include "apps/cli/try/text_columns.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>

namespace keyscout::test {
namespace {

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
