// One call on the platform fails inside each handler: what the person is left with, and under which
// name the failure is reported.

#include <gtest/gtest.h>

#include <set>
#include <tuple>

#include "base/utf8.h"
#include "support/error_of.h"
#include "support/stage.h"

namespace keyscout::test {
namespace {

/// Lets the next call of one operation fail.
struct FailingOperation final : CallHook {
  void onCall(std::string_view called) override {
    if (called != operation) return;
    operation.clear();
    throw platformFailure(PlatformError::fileAccess, u"test");
  }
  std::string operation;
};

struct Case {
  std::string name;
  std::string operation;
  std::function<void(Stage&, StagedControl&)> before;  // after "a" was typed
  std::function<void(Stage&, StagedControl&)> act;
  Strings errors;  // of the trace
  bool dropped, locked;
  Strings events;
};

void nothing(Stage&, StagedControl&) {}
void intoTheList(Stage& stage, StagedControl&) { stage.press(KeyCodes::down); }
void toTheLastEntry(Stage& stage, StagedControl&) {
  for (const std::int16_t key : {KeyCodes::down, KeyCodes::pageDown, KeyCodes::pageDown})
    stage.press(key);
}
auto keyDown(std::int16_t key) {
  return [key](Stage& stage, StagedControl&) { stage.form->keyDown(key, 0); };
}
auto keyUp(std::int16_t key) {
  return [key](Stage& stage, StagedControl&) { stage.form->keyUp(key, 0); };
}
void type0(Stage& stage, StagedControl&) { stage.type(u"0"); }
void paste9(Stage& stage, StagedControl&) { stage.form->paste(u"9"); }
void paste01(Stage& stage, StagedControl&) { stage.form->paste(u"01"); }

const Case cases[] = {
    {"a change", "enterProcedure", nothing, paste9, {"! keyscoutText_Change 75"}, false, true, {}},
    {"a lookup", "entryCount", nothing, paste9, {}, false, true, {"needBrand", "Change"}},
    {"the load of a lookup",
     "openFile",
     nothing,
     paste01,
     {"! loadKeyscoutCombo 75"},
     false,
     true,
     {"needBrand", "Change"}},
    {"a key in the text",
     "enterProcedure",
     nothing,
     keyDown(KeyCodes::end),
     {"! keyscoutText_KeyDown 75"},
     false,
     true,
     {}},
    {"Down in the text",
     "select",
     nothing,
     keyDown(KeyCodes::down),
     {"! keyscoutText_KeyDown 75"},
     false,
     true,
     {}},
    {"showing the list",
     "showDropDown",
     [](Stage&, StagedControl& control) { control.control.hideList(); },
     type0,
     {"! showList 75"},
     false,
     false,
     {"KeyDown(48)", "needBrand", "Change", "KeyUp(48)"}},
    {"hiding the list",
     "showDropDown",
     nothing,
     keyDown(KeyCodes::up),
     {"! hideList 75"},
     true,
     false,
     {"KeyDown(38)"}},
    {"Enter in the list",
     "entryText",
     intoTheList,
     keyDown(KeyCodes::enter),
     {"! doit 75", "! keyscoutlist_KeyDown 75"},
     false,
     true,
     {}},
    {"Enter in the text",
     "entryText",
     [](Stage& stage, StagedControl& control) {
       stage.press(KeyCodes::down);
       stage.focus(control);
     },
     keyDown(KeyCodes::enter),
     {"! doit 75", "! keyscoutText_KeyDown 75"},
     false,
     true,
     {}},
    {"Down on the last entry",
     "entryText",
     toTheLastEntry,
     keyDown(KeyCodes::down),
     {"! keyscoutlist_KeyDown 75"},
     false,
     true,
     {}},
    {"the load of nine more",
     "append",
     toTheLastEntry,
     keyDown(KeyCodes::down),
     {"! loadKeyscoutCombo 75"},
     false,
     true,
     {}},
    {"Up on the first entry",
     "setFocus",
     intoTheList,
     keyDown(KeyCodes::up),
     {"! keyscoutlist_KeyDown 75"},
     false,
     true,
     {}},
    {"a key that comes up in the list",
     "exitProcedure",
     intoTheList,
     keyUp(KeyCodes::down),
     {"! keyscoutlist_KeyUp 75"},
     false,
     true,
     {}},
    {"typing in the list",
     "setFocus",
     intoTheList,
     type0,
     {"! keyscoutList_Change 75"},
     true,
     false,
     {}},
    {"a click",
     "entryText",
     nothing,
     [](Stage&, StagedControl& control) { control.surface->click(1); },
     {"! doit 75"},
     false,
     true,
     {}},
    {"the host's accept",
     "setSelStart",
     intoTheList,
     [](Stage&, StagedControl& control) {
       EXPECT_EQ(errorOf([&] { control.control.doit(); }), 75);
     },
     {"! doit 75"},
     false,
     false,
     {"brandChanged(ACME)", "needBrand", "Change"}},
    {"the list that comes with the focus",
     "addDropDownList",
     [](Stage& stage, StagedControl& control) {
       control.control.hideList();
       stage.form->leaveFocus();
     },
     [](Stage& stage, StagedControl& control) { stage.focus(control); },
     {"! keyscoutText_GotFocus 75"},
     false,
     false,
     {}},
    {"the list that goes with the focus",
     "removeChild",
     [](Stage&, StagedControl& control) { control.control.hideList(); },
     [](Stage& stage, StagedControl&) { stage.form->leaveFocus(); },
     {"! keyscoutText_LostFocus 75"},
     false,
     false,
     {}},
};

TEST(FailingHandlers, CloseTheListAndReportUnderTheirNames) {
  const DataDirectory directory{{series("A", 30)}};
  for (const Case& c : cases) {
    FailingOperation fault;
    Stage stage{&fault};
    stage.start(directory);
    const auto control = stage.addControl();
    stage.focus(*control);
    stage.type(u"a");
    c.before(stage, *control);
    control->events.take();
    stage.takeTrace();
    stage.box.answer = MessageBoxButton::no;
    const bool isAsked = c.locked && std::ranges::find(c.events, "Change") != c.events.end();

    fault.operation = c.operation;
    c.act(stage, *control);
    EXPECT_EQ(fault.operation, "") << c.name << ": it never failed";
    Strings errors = stage.takeTrace();
    std::erase_if(errors, [](const std::string& line) { return !line.starts_with('!'); });
    EXPECT_EQ(errors, c.errors) << c.name;
    EXPECT_EQ(control->isDropped(), c.dropped) << c.name;
    EXPECT_EQ(static_cast<bool>(control->control.isListShowing()), c.dropped) << c.name;
    EXPECT_EQ(static_cast<bool>(stage.controller.KeyscoutLocked()), c.locked) << c.name;
    EXPECT_EQ(control->events.take(), c.events) << c.name;
    if (isAsked) {
      EXPECT_EQ(stage.box.texts.size(), 1U) << c.name;
      EXPECT_EQ(stage.box.lastTitle, u"Keyscout");
    }
  }
}

TEST(FailingHandlers, LeaveAcceptingSuppressedWhereTheListDidNotClose) {
  const DataDirectory directory{{series("A", 30)}};
  FailingOperation fault;
  Stage stage{&fault};
  stage.start(directory);
  const auto control = stage.addControl();
  stage.focus(*control);
  stage.form->paste(u"a");
  fault.operation = "showDropDown";
  control->control.hideList();
  EXPECT_TRUE(control->control.fields().suppressAccept);
  EXPECT_TRUE(control->control.isListShowing());
}

/// Every call to the trace service of a session, by what it was called with.
TEST(Trace, NamesClassAndLevelOfEveryProcedure) {
  const DataDirectory directory{{series("A", 30)}};
  Stage stage;
  stage.start(directory);
  const auto control = stage.addControl();
  stage.focus(*control);
  stage.type(u"a");
  for (const std::int16_t key :
       {KeyCodes::down, KeyCodes::pageDown, KeyCodes::pageDown, KeyCodes::down})
    stage.press(key);
  control->surface->click(0);
  stage.controller.resetLastTableNumber();
  EXPECT_TRUE(stage.controller.tryToUnlock());
  directory.remove("catindex.txt");
  errorOf([&] { stage.controller.needToUpdate(1); });
  directory.remove("0.txt");
  control->control.setText(u"");
  stage.form->paste(u"a");

  using Call = std::tuple<std::string, std::string, int>;  // class, procedure, level or line
  std::set<Call> reports;
  std::set<Call> errors;
  for (const TraceCall& call : stage.trace->take()) {
    auto& where = call.kind == TraceCall::Kind::reportError ? errors : reports;
    where.insert({toUtf8(call.className), toUtf8(call.procName), call.levelOrLine});
  }
  const std::string control_ = "keyscoutControl", controller = "RWKeyscoutController";
  EXPECT_EQ(reports, (std::set<Call>{{control_, "doit", 0},
                                     {control_, "findTableNumber", 1},
                                     {control_, "hideList()", 0},
                                     {control_, "keyInKeyscout", 0},
                                     {control_, "keyscoutList_Click", 0},
                                     {control_, "keyscoutText_Change()", 0},
                                     {control_, "keyscoutText_KeyDown()", 0},
                                     {control_, "keyscoutlist_KeyDown()", 0},
                                     {control_, "keyscoutlist_KeyUp()", 0},
                                     {control_, "loadKeyscoutCombo", 0},
                                     {control_, "scrollDownKeyscoutWithBrand", 0},
                                     {control_, "showList()", 0},
                                     {controller, "authenticateRequiredProperties()", 0},
                                     {controller, "checkCatalogControlFile", 1},
                                     {controller, "checkDownloadVersion", 1},
                                     {controller, "init()", 0},
                                     {controller, "init()", 1},
                                     {controller, "initialize", 1},
                                     {controller, "resetLastTableNumber", 1},
                                     {controller, "tryToUnlock", 1}}));
  EXPECT_EQ(errors, (std::set<Call>{{"keyscoutModule", "needToUpdate", 0},
                                    {control_, "loadKeyscoutCombo", 0}}));
}

}  // namespace
}  // namespace keyscout::test
