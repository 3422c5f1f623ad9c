#include <gtest/gtest.h>

#include "base/utf8.h"
#include "support/stage.h"

namespace keyscout::test {
namespace {

using Keys = std::vector<std::pair<std::int16_t, std::int16_t>>;  // key code and modifiers

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

TEST_F(Control, WritesTextForTheHostWithoutLookup) {
  for (const Boolean enabled : {True, False}) {
    stage.controller.setKeyscoutEnabled(enabled);
    control->events.take();
    control->control.setText(u"A00");
    EXPECT_EQ(control->events.take(), (Strings{"needBrand", "Change"}));
    EXPECT_EQ(stage.controller.KeyscoutEnabled(), enabled);
    EXPECT_EQ(control->entries(), Strings{});
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

TEST_F(Control, HasProperties) {
  keyscoutControl& c = control->control;
  c.setText(u"0123456789");
  c.setSelStart(3);
  c.setSelLength(100);
  EXPECT_EQ(c.selLength(), 7);
  EXPECT_EQ(errorOf([&] { c.setSelStart(-1); }), 380);
  EXPECT_EQ(c.selStart(), 3);
  c.setText(String(40'000, u'x'));
  c.setSelStart(32'767);
  EXPECT_EQ(c.selStart(), 32'767);
  EXPECT_EQ(errorOf([&] { EXPECT_GT(c.selLength(), -1); }), 0);
  stage.press(KeyCodes::end);
  EXPECT_EQ(errorOf([&] { c.selStart(); }), 6);

  c.setForeColor(String{u"255"});
  EXPECT_EQ(std::get<std::int32_t>(c.ForeColor()), 255);
  EXPECT_EQ(errorOf([&] { c.setBackColor(String{u"red"}); }), 13);
  c.setBackColor(std::int32_t{0x123456});
  EXPECT_EQ(std::get<std::int32_t>(c.BackColor()), 0x123456);
  c.setFontBold(Boolean::stored(5));
  EXPECT_EQ(c.FontBold().number(), 5);
  c.setTheToolTipText(u"tip");
  EXPECT_EQ(c.TheToolTipText(), u"tip");
  c.setText(u"");
  c.setLocked(True);
  stage.type(u"a");
  EXPECT_EQ(control->text(), "");
  EXPECT_TRUE(c.Locked());
  c.setLocked(False);
  EXPECT_FALSE(c.Locked());
  c.setEnabled(False);
  EXPECT_FALSE(c.Enabled());
  control->surface->resize(250);
  EXPECT_EQ(control->surface->textBox().width(), 250);
}

TEST_F(Control, TakesOnlyKeyedCollectionsForBrands) {
  struct Plain : BrandList {
    std::shared_ptr<BrandCollection> keyedCollection() override {
      throw platformFailure(PlatformError::typeMismatch, u"test");
    }
  } plain;
  const auto brands = std::make_shared<LocalBrandList>();
  control->control.setAuthorizedBrands(brands.get());
  EXPECT_EQ(errorOf([&] { control->control.setAuthorizedBrands(&plain); }), 13);
  EXPECT_EQ(stage.controller.authorizedBrands(), brands);
  control->control.setAuthorizedBrands(nullptr);
  EXPECT_EQ(stage.controller.authorizedBrands(), nullptr);
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
