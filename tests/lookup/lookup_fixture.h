#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "base/utf8.h"
#include "support/stage.h"

namespace keyscout::test {

/// The entries with the empty ones that fill a list up.
inline Strings filled(Strings entries) {
  entries.resize(std::max<std::size_t>(entries.size(), 8));
  return entries;
}

/// A control in service whose texts are entered as a person would.
class Lookup : public testing::Test {
 protected:
  /// A focused control on `tables`, in service.
  void open(const std::vector<std::vector<Entry>>& tables) {
    directory = std::make_unique<DataDirectory>(tables);
    stage.start(*directory);
    control = stage.addControl();
    stage.focus(*control);
    stage.takeTrace();
  }
  /// Replaces the text in one change, as pasting over it does.
  void enter(StringView text) {
    control->control.setSelStart(0);
    control->control.setSelLength(999);
    stage.form->paste(text);
  }
  const LookupFields& fields() const { return control->control.lookupFields(); }

  std::unique_ptr<DataDirectory> directory;
  Stage stage;
  std::unique_ptr<StagedControl> control;
};

}  // namespace keyscout::test
