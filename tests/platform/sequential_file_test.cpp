#include "platform/sequential_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/error.h"

namespace keyscout::test {
namespace {

using Strings = std::vector<std::string>;

/// Hands bytes out in pieces of a given size, and fails where it is told to.
class PiecewiseFile final : public SequentialFile {
 public:
  PiecewiseFile(std::string bytes, std::size_t piece, std::size_t failAt = std::string::npos)
      : bytes_(std::move(bytes)), piece_(piece), failAt_(failAt) {}

 private:
  std::size_t read(char* to, std::size_t room) override {
    if (offset_ >= failAt_) {
      failAt_ = std::string::npos;
      throw platformFailure(PlatformError::fileAccess, u"test");
    }
    const std::size_t count = bytes_.copy(to, std::min(room, piece_), offset_);
    offset_ += count;
    return count;
  }

  std::string bytes_;
  std::size_t piece_;
  std::size_t failAt_;
  std::size_t offset_ = 0;
};

Strings linesOf(SequentialFile& file) {
  Strings lines;
  while (!file.atEnd()) lines.emplace_back(file.readLine());
  return lines;
}

TEST(SequentialFile, EndsLinesAtLfWithOrWithoutCr) {
  const std::string longLine(100'000, 'x');
  const std::pair<std::string, Strings> cases[] = {
      {"", {}},
      {"\r\n", {""}},
      {"a\r\nb", {"a", "b"}},
      {"a\nb\n", {"a", "b"}},
      {"a\r\n\r\n\nb\r\n", {"a", "", "", "b"}},
      {"a\rb\r\r\nc\r", {"a\rb\r", "c\r"}},
      {std::string("\0\x1A\xFF\n", 4), {std::string("\0\x1A\xFF", 3)}},
      {"a\r\n\x1A", {"a"}},
      {"a\x1A", {"a"}},
      {"\x1A", {}},
      {"\x1A\r\n\x1A"
       "b\x1A\x1A",
       {"\x1A",
        "\x1A"
        "b\x1A"}},
      {longLine + "\x1A" + longLine + "\x1A", {longLine + "\x1A" + longLine}},
      {longLine + "\r\n" + longLine, {longLine, longLine}}};
  for (const auto& [bytes, expected] : cases) {
    for (const std::size_t piece : {1UL, 2UL, 7UL, 32768UL, 1000000UL}) {
      PiecewiseFile file{bytes, piece};
      EXPECT_EQ(linesOf(file), expected) << bytes.substr(0, 20) << " by " << piece;
    }
  }
}

TEST(SequentialFile, TellsOfAFailureOnceAndGoesOn) {
  for (const std::size_t failAt : {0UL, 1UL, 3UL, 5UL, 8UL}) {
    PiecewiseFile file{"one\ntwo\nthree", 1, failAt};
    Strings lines;
    int failures = 0;
    while (!file.atEnd()) {
      try {
        lines.emplace_back(file.readLine());
      } catch (const Error& error) {
        EXPECT_EQ(error.number(), 75);
        ++failures;
      }
    }
    EXPECT_EQ(failures, 1);
    EXPECT_EQ(lines, (Strings{"one", "two", "three"})) << failAt;
  }
}

}  // namespace
}  // namespace keyscout::test
