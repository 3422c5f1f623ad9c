#include <gtest/gtest.h>

#include <map>

#include "base/utf8.h"
#include "support/stage.h"

namespace keyscout::test {
namespace {

/// Counts the calls that the component makes on its platform and lets one of them fail, or that one
/// and all after it.
class FailingCall final : public CallHook {
 public:
  void failAt(int call, bool fromThenOn) {
    calls_ = 0;
    failAt_ = call;
    fromThenOn_ = fromThenOn;
  }
  void repair() { failAt_ = 0; }
  int calls() const { return calls_; }
  const std::string& failed() const { return failed_; }

 private:
  void onCall(std::string_view operation) override {
    ++calls_;
    if (failAt_ == 0 || calls_ < failAt_ || (calls_ > failAt_ && !fromThenOn_)) return;
    if (calls_ == failAt_) failed_ = operation;
    throw platformFailure(PlatformError::fileAccess, u"test");
  }

  int calls_ = 0;
  int failAt_ = 0;
  bool fromThenOn_ = false;
  std::string failed_;
};

class Faults : public testing::TestWithParam<bool> {
 protected:
  /// Start-up, typing, scrolling over a table's end, accepting, moving the focus, unlocking. What
  /// the host calls may fail to the host; what a person does may not fail at all.
  static void play(Stage& stage, const DataDirectory& directory, StagedControl& control) {
    const auto hostCalls = [](const auto& call) {
      try {
        call();
      } catch (const Error&) {  // NOLINT(bugprone-empty-catch): a host that goes on
      }
    };
    stage.configure(directory);
    hostCalls([&] { return stage.controller.init(); });
    stage.controller.setKeyscoutEnabled(True);
    stage.focus(control);
    stage.type(u"a0");
    stage.press(KeyCodes::down);
    for (int i = 0; i < 12; ++i) stage.press(KeyCodes::down);
    stage.press(KeyCodes::up);
    stage.press(KeyCodes::enter);
    stage.form->paste(u"b");
    hostCalls([&] { control.control.setSelLength(1); });
    stage.press(KeyCodes::backspace);
    hostCalls([&] { control.control.doit(); });
    hostCalls([&] { control.control.setText(u""); });
    stage.controller.setKeyscoutEnabled(True);
    stage.type(u"a0");
    if (control.isDropped()) control.surface->click(2);
    stage.form->leaveFocus();
    stage.focus(control);
    control.control.lockKeyscout();
    hostCalls([&] { return stage.controller.tryToUnlock(); });
    hostCalls([&] { stage.controller.needToUpdate(1); });
    stage.type(u"1");
    stage.form->leaveFocus();
  }
};

TEST_P(Faults, EveryCallMayFail) {
  const bool fromThenOn = GetParam();
  const DataDirectory directory{{series("A", 12), series("B", 12)}};
  FailingCall fault;
  int calls = 0;
  {
    Stage stage{&fault};
    const auto control = stage.addControl();
    play(stage, directory, *control);
    calls = fault.calls();
    ASSERT_TRUE(stage.box.texts.empty());
    ASSERT_EQ(control->text(), "A0021");
  }

  std::map<std::string, int> failures;
  for (int call = 1; call <= calls; ++call) {
    Stage stage{&fault};
    const auto control = stage.addControl();
    fault.failAt(call, fromThenOn);
    ASSERT_NO_THROW(play(stage, directory, *control)) << call << ' ' << fault.failed();
    ++failures[fault.failed()];
    const std::string which = std::to_string(call) + " " + fault.failed();

    EXPECT_EQ(stage.hookedFiles->openCount(), 0) << which;
    const auto list = control->surface->listView();
    if (!fromThenOn) {
      // The last thing that the session did was to leave, which leaves nothing held back.
      EXPECT_TRUE(!list || list->redraws) << which;
    }

    fault.repair();
    ASSERT_EQ(stage.controller.tryToUnlock(), True) << which;
    stage.controller.setKeyscoutEnabled(True);
    control->control.setText(u"");
    stage.focus(*control);
    // A text no longer than the last one begins a lookup afresh.
    stage.type(u"a");
    stage.press(KeyCodes::backspace);
    stage.type(u"b");
    EXPECT_EQ(control->entries().front(), "B000") << which;
    EXPECT_EQ(control->entries().size(), 9U) << which;
    EXPECT_TRUE(control->isDropped() && control->surface->listView()->redraws) << which;
    EXPECT_EQ(control->control.fields().suppressAccept, True)
        << "from the key that came up: " << which;
    stage.press(KeyCodes::down);
    EXPECT_EQ(control->control.fields().suppressAccept, False) << which;
    stage.press(KeyCodes::enter);
    EXPECT_EQ(control->text(), "B000") << which;
    if (testing::Test::HasFailure()) break;
  }
  for (const std::string operation :
       {"openFile",      "readLine",     "fileExists",  "lastModified",    "enterProcedure",
        "exitProcedure", "append",       "removeFirst", "clear",           "entryCount",
        "setRedraw",     "showDropDown", "setText",     "setSelStart",     "setSelLength",
        "setFocus",      "select",       "entryText",   "addDropDownList", "removeChild"})
    EXPECT_GT(failures[operation], 0) << operation << " never failed";
}

TEST(FaultOfTheList, AListThatCouldNotBeMadeIsMadeWhenItIsNeeded) {
  struct RefusedLists final : CallHook {
    int left = 2;
    void onCall(std::string_view operation) override {
      if (operation == "addDropDownList" && left-- > 0)
        throw platformFailure(PlatformError::outOfMemory, u"test");
    }
  } refused;
  const DataDirectory directory{{series("A", 12)}};
  Stage stage{&refused};
  const auto control = stage.addControl();
  stage.start(directory);
  stage.focus(*control);
  stage.type(u"a");
  EXPECT_FALSE(control->isDropped());
  EXPECT_EQ(stage.controller.KeyscoutLocked(), False);
  stage.type(u"0");
  EXPECT_TRUE(control->isDropped());
  EXPECT_EQ(control->entries().size(), 9U);
}

INSTANTIATE_TEST_SUITE_P(Component, Faults, testing::Bool(), [](const auto& parameter) {
  return parameter.param ? "FromThenOn" : "Once";
});

}  // namespace
}  // namespace keyscout::test
