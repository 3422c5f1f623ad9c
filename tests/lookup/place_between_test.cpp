#include "lookup/place_between.h"

#include <gtest/gtest.h>

namespace keyscout::test {
namespace {

TEST(PlaceBetween, GoesByTheCharactersBehindTheCommonBeginning) {
  struct Case {
    const char* first;
    const char* last;
    const char* key;
    double place;
  };
  for (const auto& [first, last, key, place] : {
           Case{"BT1000", "BT2000", "BT1500", 0.5},
           {"BT1000", "BT2000", "BT1000", 0},
           {"BT1000", "BT2000", "BT2000", 1},
           {"BT-100/X", "BT-900/X", "BT-300/X", 0.25},
           {"1A00", "1K00", "1F00", 0.5},
           {"A900", "C100", "B500", 0.5},   // the last digits of A, all of B, the first of C
           {"X19", "X1999", "X195", 0.54},  // a number that ends stands below those that go on
           {"BT1000", "BT2000", "AA", 0},   // below both
           {"BT1000", "BT2000", "ZZ", 1},   // above both
           {"", "", "BT1500", 0.5},         // nothing known
           {"BT2000", "BT1000", "BT1500", 0.5},
           {"BT1000", "BT1000", "BT1000", 0.5},
           {"\xC9", "\xE9", "\xD9", 0.5},  // letters that nothing is known of
       })
    EXPECT_NEAR(placeBetween(first, last, key), place, 0.02)
        << first << " to " << last << ", " << key;
}

}  // namespace
}  // namespace keyscout::test
