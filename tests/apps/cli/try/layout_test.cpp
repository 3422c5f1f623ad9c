#include "apps/cli/try/layout.h"

#include <gtest/gtest.h>

namespace keyscout::test {
namespace {

TEST(Layout, ADropDownIsAsWideAsItsWidestEntryWhereTheScreenIs) {
  const struct {
    int screen;
    int widest;
    int column;
    int columns;
  } cases[] = {{84, 10, 13, 43}, {84, 41, 13, 43}, {84, 60, 13, 62}, {84, 75, 7, 77},
               {84, 82, 0, 84},  {84, 99, 0, 84},  {60, 60, 0, 60}};
  for (const auto& c : cases) {
    const Layout layout{24, c.screen};
    const Rectangle list = layout.dropDown(layout.part, 9, c.widest);
    EXPECT_EQ(list.column, c.column) << c.screen << ' ' << c.widest;
    EXPECT_EQ(list.columns, c.columns) << c.screen << ' ' << c.widest;
    EXPECT_EQ(list.rows, 11);
  }
}

}  // namespace
}  // namespace keyscout::test
