// Hosts that run a message loop inside an event: what the person does to other controls meanwhile
// is served as ever, and the control that waits goes on unharmed.

#include <gtest/gtest.h>

#include "support/stage.h"

namespace keyscout::test {
namespace {

class ModalHost : public testing::Test {
 protected:
  ModalHost() {
    stage.box.answer = MessageBoxButton::yes;
    stage.start(directory);
    stage.focus(*first);
  }

  /// What the person does in the loop: types into the second control and takes an entry from it.
  void useSecond(PlayableForm& form) {
    form.moveFocus(*second->surface, FocusPlace::textBox);
    form.type(u'b');
    EXPECT_EQ(second->entries().size(), 9U);
    EXPECT_TRUE(second->isDropped());
    for (const std::int16_t key : {KeyCodes::down, KeyCodes::down, KeyCodes::enter}) {
      form.keyDown(key, 0);
      form.keyUp(key, 0);
    }
    EXPECT_EQ(second->text(), "B001");
    second->control.setText(u"");
    form.type(u'b');
    second->surface->click(2);
    EXPECT_EQ(second->text(), "B002");
  }

  /// Whether a lookup in the first table fails from now on.
  void breakFirstTable(bool broken) {
    Strings lines;
    if (!broken)
      for (const Entry& entry : series("A", 20)) lines.push_back(tableLine(entry));
    directory.writeLines("0.txt", broken ? Strings{"short"} : lines);
  }

  DataDirectory directory{{series("A", 20), series("B", 20)}};
  Stage stage;
  std::unique_ptr<PlayableForm> otherForm = makeForm();
  std::unique_ptr<StagedControl> first = stage.addControl();
  std::unique_ptr<StagedControl> second;
};

TEST_F(ModalHost, ServesOtherControlsInsideAnEvent) {
  for (const std::string event : {"needBrand", "Change", "KeyDown", "UpdateKeyscout"}) {
    for (PlayableForm* const form : {stage.form.get(), otherForm.get()}) {
      SCOPED_TRACE(event + (form == otherForm.get() ? " and another form" : ""));
      second = std::make_unique<StagedControl>(stage.platform, *form);
      first->control.setText(u"");
      const bool failing = event == "UpdateKeyscout";
      breakFirstTable(failing);
      int loops = 0;
      first->events.handlers[event] = [&] {
        if (++loops != 1) return;
        if (failing) stage.controller.setKeyscoutLocked(False);
        useSecond(*form);
        stage.focus(*first);
      };
      stage.type(u"a");
      EXPECT_EQ(loops, 1);
      EXPECT_FALSE(stage.controller.KeyscoutLocked());
      EXPECT_EQ(stage.box.texts.size(), failing ? 1U : 0U);
      EXPECT_EQ(first->text(), "a");
      if (!failing) {
        EXPECT_EQ(first->entries().size(), 9U) << "the character typed last is looked up";
      }

      first->events.handlers.clear();
      stage.box.texts.clear();
      breakFirstTable(false);
      stage.press(KeyCodes::backspace);
      stage.type(u"a");
      EXPECT_EQ(first->entries().front(), "A000");
      EXPECT_TRUE(first->isDropped());
      stage.form->leaveFocus();
      second.reset();
      stage.focus(*first);
    }
  }
}

}  // namespace
}  // namespace keyscout::test
