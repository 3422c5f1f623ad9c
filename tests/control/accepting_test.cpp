// How a number of the list becomes the text.

#include "control/control_fixture.h"

#include "base/utf8.h"

namespace keyscout::test {
namespace {

TEST_F(Control, AcceptsFromTheListAndByClick) {
  const std::function<void()> ways[] = {
      [&] {
        press({{KeyCodes::down, 0}, {KeyCodes::down, 0}, {KeyCodes::enter, 0}});
      },
      [&] { control->surface->click(1); }};
  for (const auto& accept : ways) {
    control->control.setText(u"");
    stage.type(u"a");
    control->events.take();
    accept();
    Strings events = control->events.take();
    std::erase_if(events, [](const std::string& event) { return event.starts_with("Key"); });
    EXPECT_EQ(events, (Strings{"brandChanged(BOLT)", "needBrand", "Change"}));
    EXPECT_EQ(control->text(), "A001");
    EXPECT_EQ(control->control.selStart(), 4);
    EXPECT_EQ(control->control.selLength(), 0);
    EXPECT_EQ(focus(), "text");
    EXPECT_FALSE(control->isDropped());
    EXPECT_FALSE(fields().skipNextLookup);
    EXPECT_EQ(control->control.lookupFields().lastLookupText, u"a") << "accepting looks nothing up";
  }
}

TEST_F(Control, AcceptsByEnterInTheTextBox) {
  stage.type(u"a");
  press({{KeyCodes::down, 0}, {KeyCodes::down, 0}});
  stage.focus(*control);
  control->events.take();
  stage.form->keyDown(KeyCodes::enter, 0);
  EXPECT_EQ(control->events.take(), (Strings{"brandChanged(BOLT)", "needBrand", "Change"}))
      << "no KeyDown for this Enter";
  EXPECT_TRUE(fields().suppressAccept);
  EXPECT_FALSE(fields().suppressKeyDownEvent);
  stage.form->keyUp(KeyCodes::enter, 0);
  EXPECT_EQ(control->text(), "A001") << "the carriage return never arrives";
}

TEST_F(Control, AcceptsForTheHostEvenWhileLocked) {
  stage.type(u"a");
  press({{KeyCodes::down, 0}});
  control->control.lockKeyscout();
  press({{KeyCodes::enter, 0}});
  EXPECT_EQ(control->text(), "a") << "a locked list accepts nothing";
  control->control.doit();
  EXPECT_EQ(control->text(), "A000");
  EXPECT_TRUE(fields().skipNextLookup) << "a locked change leaves it";
  EXPECT_EQ(focus(), "text");
}

TEST_F(Control, FailsToTheHostWhenItCannotAccept) {
  EXPECT_EQ(errorOf([&] { control->control.doit(); }), 0) << "nothing is selected";
  stage.form->leaveFocus();
  EXPECT_EQ(errorOf([&] { control->control.doit(); }), 91);
  EXPECT_FALSE(stage.controller.KeyscoutLocked());
  const Strings trace = stage.takeTrace();
  EXPECT_EQ(trace.back(), "! doit 91");
}

TEST_F(Control, SuppressesAcceptingWhileKeysWalk) {
  const auto suppressed = [&] { return static_cast<bool>(fields().suppressAccept); };
  stage.form->paste(u"a");
  EXPECT_FALSE(suppressed()) << "released after a lookup";
  stage.type(u"0");
  EXPECT_TRUE(suppressed()) << "a key came up in the text";
  stage.form->keyDown(KeyCodes::down, 0);
  EXPECT_FALSE(suppressed()) << "the text lost the focus to the list";
  EXPECT_EQ(control->text(), "a0") << "selecting the first entry accepted nothing";
  for (const std::int16_t key :
       {KeyCodes::pageDown, KeyCodes::pageUp, KeyCodes::down, KeyCodes::up}) {
    stage.form->keyUp(key, 0);
    EXPECT_FALSE(suppressed());
    if (key == KeyCodes::up) stage.press(KeyCodes::down);  // Up on the first entry would leave
    stage.form->keyDown(key, 0);
    EXPECT_TRUE(suppressed()) << key;
    EXPECT_EQ(control->text(), "a0") << key;
  }
  stage.form->keyUp(KeyCodes::up, 0);
  stage.form->keyDown(KeyCodes::down, Modifier::shift);
  EXPECT_FALSE(suppressed()) << "with a modifier it walks nowhere";

  stage.focus(*control);
  stage.press(KeyCodes::end);
  EXPECT_TRUE(suppressed());
  stage.form->leaveFocus();
  EXPECT_FALSE(suppressed()) << "lost";
  stage.focus(*control);
  stage.type(u"0");
  ASSERT_TRUE(suppressed());
  const auto other = stage.addControl();
  stage.focus(*other);
  stage.focus(*control);
  EXPECT_FALSE(suppressed()) << "gained";
}

TEST_F(Control, AcceptsByEnterAlsoAfterAKeyCameUpInTheText) {
  stage.type(u"a");
  press({{KeyCodes::down, 0}, {KeyCodes::down, 0}});
  stage.focus(*control);
  stage.press(KeyCodes::end);
  ASSERT_TRUE(fields().suppressAccept);
  press({{KeyCodes::enter, 0}});
  EXPECT_EQ(control->text(), "A001");
}

}  // namespace
}  // namespace keyscout::test
