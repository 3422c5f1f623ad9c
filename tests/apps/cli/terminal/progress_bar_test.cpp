#include "apps/cli/terminal/progress_bar.h"

#include <gtest/gtest.h>

#include <chrono>
#include <sstream>
#include <string>
#include <thread>

namespace keyscout {
namespace {

TEST(ProgressBar, WritesOverItsLineAndTakesItAway) {
  std::ostringstream out;
  {
    ProgressBar bar{out, true, [] { return 80; }};
    bar.show("Reading", 1, 2);
    bar.show("Reading", 2, 2);  // too soon after the first
    EXPECT_EQ(out.str(), "\rReading [###############...............]  50%");
    std::this_thread::sleep_for(std::chrono::milliseconds{110});
    bar.show("Reading", 1, 2);  // nothing new
    std::this_thread::sleep_for(std::chrono::milliseconds{110});
    bar.show("On", 7, 0);
    EXPECT_EQ(out.str().substr(46), "\rOn ..." + std::string(39, ' '));
  }
  EXPECT_TRUE(out.str().ends_with("\r      \r"));

  std::ostringstream silent;
  { ProgressBar{silent, false}.show("Reading", 1, 2); }
  EXPECT_EQ(silent.str(), "");
}

TEST(ProgressBar, StaysWithinTheTerminal) {
  const struct {
    int columns;
    const char* line;
  } cases[] = {{80, "\rSorting [###############...............]  50%"},
               {30, "\rSorting [#######.......]  50%"},
               {17, "\rSorting [.]  50%"},
               {16, "\r 50% Sorting"},
               {9, "\r 50% Sor"},
               {0, "\r "}};
  for (const auto& c : cases) {
    std::ostringstream out;
    ProgressBar bar{out, true, [&] { return c.columns; }};
    bar.show("Sorting", 1, 2);
    EXPECT_EQ(out.str(), c.line) << c.columns;
  }
}

}  // namespace
}  // namespace keyscout
