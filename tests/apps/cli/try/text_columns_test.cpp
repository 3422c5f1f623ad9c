#include "apps/cli/try/text_columns.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>
#include <vector>

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

TEST(TextColumns, ACharacterIsWhatAPersonTakesForOne) {
  if (!std::setlocale(LC_ALL, "C.UTF-8")) GTEST_SKIP() << "there is no UTF-8 locale";
  const struct {
    StringView text;
    std::vector<std::size_t> bounds;
  } cases[] = {{u"ab", {0, 1, 2}},
               {u"e\u0301x", {0, 2, 3}},
               {u"a\u0323\u0301", {0, 3}},
               {u"\U0001F529!", {0, 2, 3}},
               {u"\U0001F44D\U0001F3FD!", {0, 4, 5}},
               {u"\U0001F469\u200D\U0001F527!", {0, 5, 6}},
               {StringView{u"\U0001F529", 1}, {0, 1}},
               {u"\u0301", {0, 1}}};
  for (const auto& c : cases) {
    for (std::size_t i = 0; i + 1 < c.bounds.size(); ++i) {
      EXPECT_EQ(characterBehind(c.text, c.bounds[i]), c.bounds[i + 1]);
      EXPECT_EQ(characterBefore(c.text, c.bounds[i + 1]), c.bounds[i]);
    }
    EXPECT_EQ(characterBehind(c.text, c.text.size()), c.text.size());
    EXPECT_EQ(characterBefore(c.text, 0), 0U);
  }
  std::setlocale(LC_ALL, "C");
}

TEST(TextColumns, AnEllipsisMarksWhatIsCut) {
  if (!std::setlocale(LC_ALL, "C.UTF-8")) GTEST_SKIP() << "there is no UTF-8 locale";
  EXPECT_EQ(shortened(L"abcd", 4), L"abcd");
  EXPECT_EQ(shortened(L"abcde", 4), L"abc\u2026");
  EXPECT_EQ(shortened(L"ab\u65E5\u672C", 4), L"ab \u2026");
  EXPECT_EQ(shortened(L"ab", 4), L"ab  ");
  std::setlocale(LC_ALL, "C");
}

}  // namespace
}  // namespace keyscout::test
