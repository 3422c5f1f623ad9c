#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "base/utf8.h"
#include "shared/error_codes.h"
#include "support/stage.h"

namespace keyscout::test {

using Codes = KeyscoutErrorCodes;

/// A controller told of a data directory of two tables, which it has not read yet.
class Controller : public testing::Test {
 protected:
  Controller() { stage.configure(directory); }

  /// The error that `action` fails with, checked to come from the controller.
  static Error refusalOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const Error& error) {
      EXPECT_EQ(error.source(), u"RWKeyscoutController");
      return error;
    }
    ADD_FAILURE() << "no error";
    return Error{0, u"", u""};
  }
  static void expectRefusal(const std::function<void()>& action, Codes code, StringView sentence) {
    const Error error = refusalOf(action);
    EXPECT_EQ(error.number(), static_cast<std::int32_t>(code));
    EXPECT_EQ(toUtf8(error.description()), toUtf8(sentence));
  }

  DataDirectory directory{{series("A", 3, {"ACME", "BOLT"}), series("B", 3)}};
  Stage stage;
  RWKeyscoutController& controller = stage.controller;
};

}  // namespace keyscout::test
