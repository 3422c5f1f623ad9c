// How `pack` sorts more numbers than fit its memory, and by what order.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "apps/cli/sorting/external_sorter.h"
#include "apps/cli/sorting/number_order.h"
#include "base/code_page.h"
#include "base/letter_case.h"

namespace keyscout {
namespace {

namespace fs = std::filesystem;

class ExternalSorterTest : public testing::Test {
 protected:
  ExternalSorterTest()
      : root_(fs::temp_directory_path() / ("keyscout-sort-" + std::to_string(::getpid()))) {
    fs::create_directories(root_);
  }
  ~ExternalSorterTest() override { fs::remove_all(root_); }

  fs::path root_;
};

TEST_F(ExternalSorterTest, KeepsTheOrderOfEqualKeys) {
  // Some 330 files, of which it may open fewer than 100 at once.
  rlimit openFiles{};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &openFiles), 0);
  const rlimit fewer{100, openFiles.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &fewer), 0);

  ExternalSorter sorter{root_, "run", 600};
  for (int i = 0; i < 3000; ++i) {
    // Keys that share more than their first eight bytes, and one that is longer than the memory.
    const std::string key = "a long beginning " + std::to_string(i % 3);
    sorter.add({i == 1500 ? std::string(2000, 'b') : key, std::to_string(i)});
  }
  std::vector<std::pair<std::string, int>> sorted;
  while (const SortRecord* next = sorter.next())
    sorted.emplace_back(next->key, std::stoi(std::string{next->payload}));
  ::setrlimit(RLIMIT_NOFILE, &openFiles);
  EXPECT_EQ(sorted.size(), 3000U);
  EXPECT_TRUE(std::ranges::is_sorted(sorted));
  EXPECT_EQ(sorted.back().second, 1500);
}

TEST_F(ExternalSorterTest, RemovesItsFiles) {
  {
    ExternalSorter sorter{root_, "run", 600};
    for (int i = 0; i < 3000; ++i) sorter.add({std::to_string(i), ""});
    EXPECT_STREQ(std::string{sorter.next()->key}.c_str(), "0");
    EXPECT_FALSE(fs::is_empty(root_));
  }
  EXPECT_TRUE(fs::is_empty(root_));
  ExternalSorter empty{root_, "run", 600};
  EXPECT_EQ(empty.next(), nullptr);
}

TEST(NumberOrder, AgreesWithTheCodePageAboutEveryTwoBytes) {
  const NumberOrder order{windows1252()};
  std::string keys[256];
  std::string folded[256];
  for (int byte = 0; byte < 256; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    std::string back;
    order.toKey(text, keys[byte]);
    order.toText(keys[byte], back);
    EXPECT_EQ(back, text);
    order.foldCase(keys[byte], folded[byte]);
  }
  for (int a = 0; a < 256; ++a) {
    ASSERT_LE(folded[a], keys[a]) << a;
    for (int b = 0; b < 256; ++b) {
      const char16_t unitA = windows1252()[static_cast<char>(a)];
      const char16_t unitB = windows1252()[static_cast<char>(b)];
      ASSERT_EQ(keys[a] < keys[b], unitA < unitB) << a << ' ' << b;
      ASSERT_EQ(folded[a] == folded[b], upperCase(unitA) == upperCase(unitB)) << a << ' ' << b;
    }
  }
}

}  // namespace
}  // namespace keyscout
