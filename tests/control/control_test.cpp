#include "control/control_fixture.h"

#include "base/utf8.h"

namespace keyscout::test {
namespace {

TEST_F(Control, RaisesItsEventsAroundTheLookup) {
  control->events.handlers["needBrand"] = [&] { control->control.setBrand(u"BOLT"); };
  stage.type(u"a");
  EXPECT_EQ(control->events.take(), (Strings{"KeyDown(65)", "needBrand", "Change", "KeyUp(65)"}));
  EXPECT_EQ(control->entries().front(), "A001") << "the brand set in needBrand counts at once";
  EXPECT_EQ(
      stage.takeTrace(),
      (Strings{"> keyscoutText_KeyDown()", "< keyscoutText_KeyDown()", "> keyscoutText_Change()",
               "> keyInKeyscout", "> findTableNumber", "< findTableNumber", "> loadKeyscoutCombo",
               "< loadKeyscoutCombo", "> showList()", "< showList()", "< keyInKeyscout",
               "< keyscoutText_Change()"}));
  EXPECT_TRUE(fields().suppressAccept) << "from the key that came up";
}

TEST_F(Control, MovesBetweenTextAndListByKeys) {
  constexpr std::int16_t alt = Modifier::alt;
  struct Case {
    std::string name;
    Keys keys;  // after "a" was typed
    std::string focus;
    int selected;
    bool dropped;
    Strings events;
  };
  const Case cases[] = {
      {"down", {{KeyCodes::down, 0}}, "list", 0, true, {"KeyDown(40)"}},
      {"down twice", {{KeyCodes::down, 0}, {KeyCodes::down, 0}}, "list", 1, true, {"KeyDown(40)"}},
      {"up", {{KeyCodes::up, 0}}, "text", -1, false, {"KeyDown(38)", "KeyUp(38)"}},
      {"enter, none selected",
       {{KeyCodes::enter, 0}},
       "text",
       -1,
       false,
       {"KeyDown(13)", "KeyUp(13)"}},
      {"shifted down", {{KeyCodes::down, 1}}, "text", -1, true, {"KeyDown(40,1)", "KeyUp(40,1)"}},
      {"alt", {{65, alt}}, "text", -1, false, {"KeyDown(65,4)", "KeyUp(65,4)"}},
      {"alt and ctrl", {{65, alt | 2}}, "text", -1, true, {"KeyDown(65,6)", "KeyUp(65,6)"}},
      {"page down to the last",  // how long a page is, is the list's own
       {{KeyCodes::down, 0}, {KeyCodes::pageDown, 0}, {KeyCodes::pageDown, 0}},
       "list",
       8,
       true,
       {"KeyDown(40)"}},
      {"back up",
       {{KeyCodes::down, 0}, {KeyCodes::up, 0}},
       "text",
       0,
       false,
       {"KeyDown(40)", "KeyUp(38)"}},
      {"alt up",
       {{KeyCodes::down, 0}, {KeyCodes::up, alt}},
       "text",
       0,
       false,
       {"KeyDown(40)", "KeyUp(38,4)"}},
      {"alt down in the list",
       {{KeyCodes::down, 0}, {KeyCodes::down, alt}},
       "list",
       0,
       false,
       {"KeyDown(40)"}},
  };
  for (const Case& c : cases) {
    control->control.setText(u"");
    control->control.hideList();
    stage.form->leaveFocus();
    stage.focus(*control);
    stage.type(u"a");
    control->events.take();
    press(c.keys);
    EXPECT_EQ(focus(), c.focus) << c.name;
    EXPECT_EQ(control->selected(), c.selected) << c.name;
    EXPECT_EQ(control->isDropped(), c.dropped) << c.name;
    EXPECT_EQ(static_cast<bool>(control->control.isListShowing()), c.dropped) << c.name;
    EXPECT_EQ(control->events.take(), c.events) << c.name;
    EXPECT_EQ(control->text(), "a") << c.name;
  }
}

TEST_F(Control, GoesOnAfterEscapeInTheList) {
  // Whether Escape closes the list is the toolkit's own affair; the next character opens it again.
  stage.type(u"a");
  press({{KeyCodes::down, 0}, {KeyCodes::escape, 0}});
  EXPECT_EQ(control->text(), "a");
  stage.type(u"0");
  EXPECT_EQ(control->text(), "a0");
  EXPECT_EQ(focus(), "text");
  EXPECT_TRUE(control->isDropped());
  EXPECT_TRUE(control->control.isListShowing());
  press({{KeyCodes::down, 0}, {KeyCodes::down, 0}, {KeyCodes::enter, 0}});
  EXPECT_EQ(control->text(), "A001");
}

TEST_F(Control, ExtendsTheListAtItsLastEntry) {
  stage.type(u"a01");
  press({{KeyCodes::down, 0}});
  for (int i = 0; i < 7; ++i) press({{KeyCodes::down, 0}});
  EXPECT_EQ(control->entries().size(), 9U);
  press({{KeyCodes::down, 0}, {KeyCodes::down, 0}});
  EXPECT_EQ(control->entries().back(), "B004") << "into the next table, to the end of the catalog";
  EXPECT_EQ(control->selected(), 9);
  EXPECT_EQ(control->entries().size(), 15U);
  EXPECT_TRUE(control->control.lookupFields().endOfCatalogReached);
  EXPECT_EQ(focus(), "list");
  // The last number of a full page at the end of the catalog: nothing is left to be read for.
  press({{KeyCodes::pageDown, 0}});
  ASSERT_EQ(control->selected(), 14);
  stage.takeTrace();
  press({{KeyCodes::down, 0}});
  const Strings trace = stage.takeTrace();
  EXPECT_NE(std::ranges::find(trace, "> scrollDownKeyscoutWithBrand"), trace.end());
  EXPECT_EQ(std::ranges::find(trace, "> loadKeyscoutCombo"), trace.end());
  EXPECT_EQ(control->entries().size(), 15U);
}

TEST_F(Control, LeavesFillerLinesAlone) {
  stage.type(u"b");
  ASSERT_EQ(control->entries().size(), 8U);
  press({{KeyCodes::down, 0}, {KeyCodes::pageDown, 0}, {KeyCodes::down, 0}});
  EXPECT_EQ(control->selected(), 7);
  EXPECT_EQ(control->entries().size(), 8U);
  press({{KeyCodes::enter, 0}});
  EXPECT_EQ(control->text(), "b");
  EXPECT_EQ(focus(), "text");
  EXPECT_FALSE(control->isDropped());
}

TEST_F(Control, LosesNothingThatIsTypedInTheList) {
  stage.type(u"a");
  press({{KeyCodes::down, 0}});
  control->events.take();
  stage.type(u"01");
  EXPECT_EQ(focus(), "text");
  EXPECT_EQ(control->text(), "a01");
  ASSERT_FALSE(control->entries().empty());
  EXPECT_EQ(control->entries().front(), "A010");
  EXPECT_TRUE(control->isDropped());
  EXPECT_EQ(control->events.take(), (Strings{"needBrand", "Change", "KeyUp(48)", "KeyDown(49)",
                                             "needBrand", "Change", "KeyUp(49)"}))
      << "the first key goes down in the list, which tells the host nothing";
}

TEST_F(Control, LocksNobodyOutForKeysInAnEmptyList) {
  stage.type(u"a");
  control->control.setSelStart(0);
  control->control.setSelLength(1);
  stage.form->paste(u"z");  // above every number: the list stays open with nothing in it
  ASSERT_TRUE(control->isDropped());
  ASSERT_EQ(control->entries(), Strings{});
  for (const std::int16_t key : {KeyCodes::down, KeyCodes::down, KeyCodes::pageDown, KeyCodes::up,
                                 KeyCodes::end, KeyCodes::enter}) {
    press({{key, 0}});
    EXPECT_EQ(focus(), "list") << key;
    EXPECT_EQ(control->selected(), -1) << key;
  }
  EXPECT_FALSE(stage.controller.KeyscoutLocked());
  stage.press(KeyCodes::escape);
  stage.focus(*control);
  stage.press(KeyCodes::backspace);
  stage.type(u"b");
  ASSERT_FALSE(control->entries().empty());
  EXPECT_EQ(control->entries().front(), "B000");
}

TEST_F(Control, LooksNothingUpForTextThatComesWithoutTheFocus) {
  stage.form->leaveFocus();
  control->surface->textBox().setText(u"a0");
  EXPECT_EQ(control->events.take(), (Strings{"needBrand", "Change"}));
  EXPECT_FALSE(stage.controller.KeyscoutLocked());
  EXPECT_TRUE(stage.box.texts.empty());
  stage.focus(*control);
  stage.press(KeyCodes::end);
  stage.type(u"1");
  ASSERT_FALSE(control->entries().empty());
  EXPECT_EQ(control->entries().front(), "A010");
}

TEST_F(Control, LooksNothingUpUnlessServing) {
  struct Case {
    std::string name;
    Boolean enabled, authenticated, locked;
  };
  const Case cases[] = {{"disabled", False, True, False},
                        {"not authenticated", True, False, False},
                        {"locked", True, True, True}};
  for (const Case& c : cases) {
    control->control.setText(u"");
    stage.controller.setKeyscoutEnabled(True);
    stage.controller.setIsKeyscoutAuthenticated(True);
    stage.controller.setKeyscoutLocked(False);
    stage.type(u"a");
    stage.controller.setKeyscoutEnabled(c.enabled);
    stage.controller.setIsKeyscoutAuthenticated(c.authenticated);
    stage.controller.setKeyscoutLocked(c.locked);
    control->events.take();
    stage.type(u"0");
    press({{KeyCodes::down, 0}, {KeyCodes::enter, 0}});
    EXPECT_EQ(control->events.take(),
              (Strings{"KeyDown(48)", "needBrand", "Change", "KeyUp(48)", "KeyDown(40)",
                       "KeyUp(40)", "KeyDown(13)", "KeyUp(13)"}))
        << c.name;
    EXPECT_EQ(focus(), "text") << c.name;
    EXPECT_EQ(control->control.lookupFields().lastLookupText, u"a") << c.name;
    press({{65, Modifier::alt}});
    EXPECT_FALSE(control->isDropped()) << "Alt closes always: " << c.name;
  }
}

TEST_F(Control, LetsTheHostSwallowAKey) {
  control->events.keyCodeToWriteBack = 0;
  stage.type(u"ab");
  EXPECT_EQ(control->text(), "");
  control->events.keyCodeToWriteBack = -1;
  stage.type(u"ab");
  control->events.keyCodeToWriteBack = KeyCodes::backspace;
  press({{KeyCodes::escape, 0}});
  EXPECT_EQ(control->text(), "a") << "what the host writes back is what the text box processes";
}

TEST_F(Control, GivesEachPartOfAKeyToWhatHasTheFocusThen) {
  const auto other = stage.addControl();
  control->events.handlers["KeyDown"] = [&] { stage.focus(*other); };
  stage.type(u"a");
  EXPECT_EQ(control->events.take(), (Strings{"KeyDown(65)"}));
  EXPECT_EQ(other->events.take(), (Strings{"needBrand", "Change", "KeyUp(65)"}));
  EXPECT_EQ(control->text(), "");
  EXPECT_EQ(other->text(), "a");
}

TEST_F(Control, KeepsTheListWhileItIsNeeded) {
  EXPECT_EQ(control->control.keyscoutList() != nullptr, true);
  stage.form->leaveFocus();
  EXPECT_EQ(control->control.keyscoutList(), nullptr);

  stage.focus(*control);
  stage.type(u"a");
  stage.focus(*control, FocusPlace::list);
  EXPECT_NE(control->control.keyscoutList(), nullptr)
      << "dropped down, it takes the focus and stays";
  stage.focus(*control);
  const auto other = stage.addControl();
  stage.focus(*other);
  EXPECT_FALSE(control->control.isListShowing());
  EXPECT_FALSE(control->isDropped()) << "the focus left: the drop-down is closed";

  stage.focus(*control, FocusPlace::surface);
  stage.focus(*control);
  stage.type(u"0");
  stage.focus(*control, FocusPlace::surface);
  EXPECT_TRUE(control->isDropped());
  stage.form->leaveFocus();
  EXPECT_FALSE(control->control.isListShowing()) << "the surface's own loss only clears the flag";
}

TEST_F(Control, RemovesAClosedListThatGetsTheFocus) {
  stage.focus(*control, FocusPlace::list);
  EXPECT_EQ(control->control.keyscoutList(), nullptr);
  EXPECT_EQ(focus(), "-") << "nothing has the focus then";
  stage.type(u"a");
  EXPECT_EQ(control->events.take(), Strings{});
  stage.focus(*control);
  stage.type(u"a");
  EXPECT_EQ(control->text(), "a");
}

TEST_F(Control, ForwardsTheMouse) {
  // The middle button, since the left one may make a click of its release.
  constexpr std::int16_t middle = 4;
  stage.type(u"a");
  control->events.take();
  for (const auto report : {MouseReport::down, MouseReport::move})
    control->surface->mouse(report, middle, Modifier::ctrl, 5, 7);
  EXPECT_TRUE(control->isDropped());
  control->events.handlers["MouseUp"] = [&] { EXPECT_TRUE(control->isDropped()); };
  control->surface->mouse(MouseReport::up, middle, Modifier::ctrl, 5, 7);
  EXPECT_FALSE(control->isDropped());
  EXPECT_EQ(control->events.take(),
            (Strings{"MouseDown(4,2,5,7)", "MouseMove(4,2,5,7)", "MouseUp(4,2,5,7)"}));
  control->events.handlers.clear();
  const std::pair<MouseReport, std::string> clicks[] = {{MouseReport::click, "Click"},
                                                        {MouseReport::doubleClick, "DblClick"}};
  for (const auto& [report, event] : clicks) {
    control->surface->mouse(report, 1, 0, 5, 7);
    const Strings events = control->events.take();
    ASSERT_FALSE(events.empty()) << event;
    EXPECT_EQ(events.back(), event);
  }
}

TEST_F(Control, SurvivesHostsThatThrow) {
  for (const std::string event : {"needBrand", "Change", "KeyDown", "KeyUp"})
    control->events.handlers[event] = [] { throw std::runtime_error{"the host's own affair"}; };
  stage.type(u"a");
  EXPECT_EQ(control->entries().size(), 9U);
  EXPECT_FALSE(stage.controller.KeyscoutLocked());
}

}  // namespace
}  // namespace keyscout::test
