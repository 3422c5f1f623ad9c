#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support/stage.h"

namespace keyscout::test {

using Keys = std::vector<std::pair<std::int16_t, std::int16_t>>;  // key code and modifiers

/// A control in service on two tables, with the focus in its text box.
class Control : public testing::Test {
 protected:
  Control() {
    stage.start(directory);
    stage.focus(*control);
    stage.takeTrace();
  }
  void press(const Keys& keys) {
    for (const auto& [code, shift] : keys) stage.press(code, shift);
  }
  /// "text", "list" or "-" where the control has the focus in neither.
  std::string focus() const {
    const auto place = control->surface->focusPlace();
    if (place == FocusPlace::textBox) return "text";
    return place == FocusPlace::list ? "list" : "-";
  }
  const ControlFields& fields() const { return control->control.fields(); }

  DataDirectory directory{{series("A", 20, {"ACME", "BOLT"}), series("B", 5)}};
  Stage stage;
  std::unique_ptr<StagedControl> control = stage.addControl();
};

}  // namespace keyscout::test
