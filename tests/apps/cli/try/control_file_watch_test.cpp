#include "apps/cli/try/control_file_watch.h"

#include <gtest/gtest.h>

#include "support/small_catalog.h"

namespace keyscout::test {
namespace {

TEST(ControlFileWatch, TellsOnceOfEachChange) {
  const SmallCatalog catalog;
  ControlFileWatch watch{catalog.path()};
  EXPECT_FALSE(watch.hasChanged());
  catalog.writeLines("catcontrol.txt", {"INPROCESS"});
  EXPECT_TRUE(watch.hasChanged());
  EXPECT_FALSE(watch.hasChanged());
  catalog.writeLines("catcontrol.txt", {"READY"});
  EXPECT_TRUE(watch.hasChanged());
  catalog.remove("catcontrol.txt");
  EXPECT_TRUE(watch.hasChanged());
  EXPECT_FALSE(watch.hasChanged());
}

}  // namespace
}  // namespace keyscout::test
