#include "base/keyed_collection.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/error_of.h"

namespace keyscout::test {
namespace {

TEST(KeyedCollection, KeepsOrderAndComparesKeysWithoutCase) {
  KeyedCollection<int> items;
  items.add(1, u"B");
  items.add(2);
  items.add(3, u"a");
  EXPECT_EQ(errorOf([&] { items.add(4, u"b"); }), 457);
  EXPECT_EQ(items.count(), 3U);
  EXPECT_EQ(items.item(u"A"), 3);
  EXPECT_EQ(items.item(std::size_t{2}), 2);
  EXPECT_EQ(errorOf([&] { items.item(u"c"); }), 5);
  EXPECT_EQ(errorOf([&] { items.item(std::size_t{0}); }), 9);
  EXPECT_EQ(errorOf([&] { items.item(std::size_t{4}); }), 9);
  items.remove(u"b");
  EXPECT_EQ(errorOf([&] { items.remove(u"b"); }), 5);
  items.add(5, u"B");
  std::vector<int> order;
  for (const auto& entry : items) order.push_back(entry.item);
  EXPECT_EQ(order, (std::vector{2, 3, 5}));
}

}  // namespace
}  // namespace keyscout::test
