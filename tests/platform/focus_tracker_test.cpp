#include "platform/focus_tracker.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace keyscout::test {
namespace {

using Strings = std::vector<std::string>;

class FocusReports : public testing::Test {
 protected:
  /// Notes what it is told, and does once what a test asks for then.
  struct Control final : FocusObserver {
    Control(std::string called, Strings& reports) : name(std::move(called)), log(reports) {}

    void textBoxGotFocus() noexcept override { told("got"); }
    void textBoxLostFocus() noexcept override { told("lost"); }
    void surfaceLostFocus() noexcept override { told("surface lost"); }
    void focusLeft() noexcept override { told("left"); }
    void told(const std::string& what) {
      log.push_back(name + " " + what);
      if (what == actOn) std::exchange(act, [] {})();
    }

    std::string name;
    Strings& log;
    std::string actOn;
    std::function<void()> act = [] {};
  };

  Strings take() { return std::exchange(log, {}); }

  FocusTracker tracker;
  Strings log;
  Control a{"a", log};
  Control b{"b", log};
};

TEST_F(FocusReports, TellWhatEachMoveMeans) {
  struct Case {
    std::function<void()> move;
    Strings reports;
  };
  const auto to = [&](Control& control, FocusPlace place) {
    return [&, place] { tracker.moveTo(control, place); };
  };
  const Case cases[] = {
      {to(a, FocusPlace::textBox), {"a got"}},
      {to(a, FocusPlace::textBox), {}},
      {to(a, FocusPlace::list), {"a lost"}},
      {to(b, FocusPlace::list), {"a left"}},
      {to(b, FocusPlace::surface), {}},
      {to(b, FocusPlace::textBox), {"b surface lost", "b got"}},
      {to(a, FocusPlace::textBox), {"b lost", "b left", "a got"}},
      {[&] { tracker.listRemoved(a); }, {}},
      {[&] { tracker.leave(); }, {"a lost", "a left"}},
      {to(a, FocusPlace::surface), {}},
      {[&] { tracker.leave(); }, {"a surface lost", "a left"}},
      {to(a, FocusPlace::list), {}},
      {[&] { tracker.listRemoved(a); }, {"a left"}},
      {[&] { tracker.leave(); }, {}},
  };
  int row = 0;
  for (const Case& c : cases) {
    c.move();
    EXPECT_EQ(take(), c.reports) << "row " << row;
    ++row;
  }
}

TEST_F(FocusReports, WaitForTheOutermostHandlerAndComeInOrder) {
  a.actOn = "left";
  a.act = [&] { tracker.moveTo(a, FocusPlace::textBox); };
  {
    const FocusTracker::Hold outer{tracker};
    {
      const FocusTracker::Hold inner{tracker};
      tracker.moveTo(a, FocusPlace::textBox);
      tracker.moveTo(b, FocusPlace::textBox);
      EXPECT_TRUE(tracker.has(b, FocusPlace::textBox)) << "the move itself takes effect at once";
    }
    EXPECT_EQ(take(), Strings{});
  }
  EXPECT_EQ(take(), (Strings{"a got", "a lost", "a left", "b got", "b lost", "b left", "a got"}))
      << "what a report gives rise to comes last";
}

TEST_F(FocusReports, WaitNoLongerThanToTheNextInput) {
  {
    const FocusTracker::Hold handler{tracker};
    {
      const FocusTracker::Hold deeper{tracker};
      tracker.moveTo(a, FocusPlace::textBox);
      tracker.inputArrives();
      EXPECT_EQ(take(), (Strings{"a got"}));
      {
        // A handler of that input is an outermost one again.
        const FocusTracker::Hold ofInput{tracker};
        tracker.moveTo(b, FocusPlace::textBox);
        EXPECT_EQ(take(), Strings{});
      }
      EXPECT_EQ(take(), (Strings{"a lost", "a left", "b got"}));
      tracker.moveTo(a, FocusPlace::textBox);
      EXPECT_EQ(take(), (Strings{"b lost", "b left", "a got"})) << "back, as the loop ends";
    }
  }
  const FocusTracker::Hold next{tracker};
  tracker.leave();
  EXPECT_EQ(take(), Strings{}) << "the next handler is waited for as ever";
}

TEST_F(FocusReports, NeverReachAControlThatIsGone) {
  for (const bool loop : {false, true}) {
    tracker.moveTo(a, FocusPlace::textBox);
    take();
    {
      const FocusTracker::Hold handlerOfA{tracker};
      tracker.moveTo(b, FocusPlace::textBox);
      tracker.forget(a);
      if (loop) tracker.inputArrives();
    }
    EXPECT_EQ(take(), (Strings{"b got"}));
    tracker.forget(b);
    EXPECT_EQ(tracker.focus().control, nullptr);
    tracker.moveTo(a, FocusPlace::textBox);
    EXPECT_EQ(take(), (Strings{"a got"}));
    tracker.leave();
    take();
  }
  // One that goes while reports are being delivered.
  tracker.moveTo(a, FocusPlace::textBox);
  a.actOn = "lost";
  a.act = [&] { tracker.forget(a); };
  take();
  tracker.moveTo(b, FocusPlace::textBox);
  EXPECT_EQ(take(), (Strings{"a lost", "b got"}));
}

}  // namespace
}  // namespace keyscout::test
