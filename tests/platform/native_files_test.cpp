#include "platform/local/native_files.h"

#include <gtest/gtest.h>

#include "support/data_directory.h"
#include "support/error_of.h"

namespace keyscout::test {
namespace {

TEST(NativeFiles, FailsWithTheNumberOfTheReason) {
  const TemporaryFolder folder;
  const DataDirectory directory{{series("A", 1)}};
  NativeFiles files;
  const String here = directory.hostPath();
  const auto openError = [&](const String& path) { return errorOf([&] { files.open(path); }); };
  EXPECT_EQ(openError(here + u"0.txt"), 0);
  EXPECT_EQ(openError(here + u"missing.txt"), 53);
  EXPECT_EQ(openError(here + u"missing\\0.txt"), 76);
  EXPECT_EQ(openError(here + u"0.txt\\0.txt"), 76);
  EXPECT_EQ(openError(here), 75);
  EXPECT_TRUE(files.exists(here + u"0.txt"));
  EXPECT_FALSE(files.exists(here + u"missing.txt"));
  EXPECT_FALSE(files.exists(folder.hostPath()));
  const auto dateError = [&](const String& path) {
    return errorOf([&] { files.lastModified(path); });
  };
  EXPECT_EQ(dateError(here + u"0.txt"), 0);
  EXPECT_EQ(dateError(here + u"missing.txt"), 53);
  EXPECT_EQ(dateError(here), 75) << "what cannot be opened as a file has no date either";
  const String cutShort = here + u"0.txt" + u'\0' + u"more";
  EXPECT_EQ(openError(cutShort), 75);
  EXPECT_EQ(dateError(cutShort), 75);
  EXPECT_FALSE(files.exists(cutShort));
#ifdef _WIN32
  const String device = u"NUL";
#else
  const String device = u"\\dev\\null";
#endif
  EXPECT_EQ(openError(device), 75);
  EXPECT_EQ(dateError(device), 75);
}

}  // namespace
}  // namespace keyscout::test
