#include "base/error.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

#include "base/utf8.h"

namespace keyscout::test {
namespace {

TEST(Error, TurnsForeignExceptionsIntoPlatformNumbers) {
  const auto numberFor = [](const auto& exception) {
    try {
      throw exception;
    } catch (...) {
      return currentError().number();
    }
  };
  EXPECT_EQ(numberFor(std::bad_alloc{}), 7);
  EXPECT_EQ(numberFor(std::length_error{""}), 7);
  EXPECT_EQ(numberFor(std::out_of_range{""}), 9);
  EXPECT_EQ(numberFor(std::system_error{std::error_code{}}), 75);
  EXPECT_EQ(numberFor(42), 5);
  EXPECT_EQ(numberFor(std::runtime_error{""}), 5);
  EXPECT_EQ(numberFor(Error{-5, u"s", u"d"}), -5);
}

TEST(Error, HasASentenceForEachNumberOfThePlatform) {
  const std::pair<int, std::string> sentences[] = {{5, "Invalid argument"},
                                                   {6, "Overflow"},
                                                   {7, "Out of memory"},
                                                   {9, "Subscript out of range"},
                                                   {13, "Type mismatch"},
                                                   {53, "File not found"},
                                                   {70, "Permission denied"},
                                                   {75, "Path or file access error"},
                                                   {76, "Path not found"},
                                                   {91, "Object not set"},
                                                   {380, "Invalid property value"},
                                                   {457, "Key already present"}};
  for (const auto& [number, sentence] : sentences) {
    const Error error = platformFailure(static_cast<PlatformError>(number), u"here");
    EXPECT_EQ(error.number(), number);
    EXPECT_EQ(error.source(), u"here");
    EXPECT_EQ(error.what(), sentence);
    EXPECT_EQ(toUtf8(error.description()), sentence);
  }
}

}  // namespace
}  // namespace keyscout::test
