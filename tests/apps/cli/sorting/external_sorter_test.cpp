#include "apps/cli/sorting/external_sorter.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "support/temporary_folder.h"

namespace keyscout::test {
namespace {

class ExternalSorterTest : public testing::Test {
 protected:
  const std::filesystem::path& root() const { return folder_.path(); }

 private:
  TemporaryFolder folder_;
};

TEST_F(ExternalSorterTest, KeepsTheOrderOfEqualKeys) {
  // Some 330 files, of which it may open fewer than 100 at once.
  rlimit openFiles{};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &openFiles), 0);
  const rlimit fewer{100, openFiles.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &fewer), 0);

  ExternalSorter sorter{root(), "run", 600};
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
    ExternalSorter sorter{root(), "run", 600};
    for (int i = 0; i < 3000; ++i) sorter.add({std::to_string(i), ""});
    EXPECT_STREQ(std::string{sorter.next()->key}.c_str(), "0");
    EXPECT_FALSE(std::filesystem::is_empty(root()));
  }
  EXPECT_TRUE(std::filesystem::is_empty(root()));
  ExternalSorter empty{root(), "run", 600};
  EXPECT_EQ(empty.next(), nullptr);
}

}  // namespace
}  // namespace keyscout::test
