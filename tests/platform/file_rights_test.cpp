// What the system lets a user read.

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <tuple>

#include "platform/local/native_files.h"
#include "support/data_directory.h"
#include "support/error_of.h"

namespace keyscout::test {
namespace {

/// The rights of a user whom files can be kept from, which root is not.
class PlainUser {
 public:
  PlainUser() : was_(::geteuid()) {
    if (was_ == 0) isPlain_ = ::seteuid(65534) == 0;
  }
  ~PlainUser() {
    if (was_ == 0) std::ignore = ::seteuid(0);
  }
  PlainUser(const PlainUser&) = delete;
  PlainUser& operator=(const PlainUser&) = delete;

  bool isPlain() const { return isPlain_; }

 private:
  uid_t was_;
  bool isPlain_ = true;
};

TEST(FileRights, SayWhatAUserMayNotRead) {
  const DataDirectory directory{{series("A", 1)}};
  NativeFiles files;
  const String path = directory.hostPath() + u"0.txt";
  const auto permit = [&](const std::filesystem::path& what, int bits) {
    std::filesystem::permissions(what, static_cast<std::filesystem::perms>(bits));
  };
  permit(directory.path() / "0.txt", 0);
  {
    const PlainUser user;
    if (!user.isPlain()) GTEST_SKIP() << "root without another user";
    EXPECT_EQ(errorOf([&] { files.open(path); }), 70);
    EXPECT_TRUE(files.exists(path));
  }
  permit(directory.path(), 0);
  {
    const PlainUser user;
    EXPECT_EQ(errorOf([&] { files.open(path); }), 70);
    EXPECT_EQ(errorOf([&] { files.lastModified(path); }), 70);
    EXPECT_FALSE(files.exists(path));
  }
  permit(directory.path(), 0700);
}

}  // namespace
}  // namespace keyscout::test
