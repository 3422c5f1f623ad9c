#include "base/error.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <system_error>

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
  EXPECT_EQ(numberFor(Error{-5, u"s", u"d"}), -5);
}

}  // namespace
}  // namespace keyscout::test
