#include <gtest/gtest.h>

#include <thread>

#include "support/stage.h"

namespace keyscout::test {
namespace {

/// What a host does whose control lives longer than the state of its thread.
struct LateHost {
  ~LateHost() {
    if (!control) return;
    for (const std::function<void()>& call : std::initializer_list<std::function<void()>>{
             [&] { control->control.setText(u"a"); }, [&] { control->control.doit(); },
             [&] { control->control.lockKeyscout(); },
             [&] { control->control.setAuthorizedBrands(nullptr); },
             [&] { return stage->controller.init(); },
             [&] { stage->controller.setKeyscoutLocked(False); },
             [&] { (void)stage->controller.updateURL(); }})
      errors.push_back(errorOf(call));
    stage->type(u"b");
    control->control.hideList();
    textTyped = control->text();
    control.reset();
    stage.reset();
  }

  std::vector<std::int32_t>& errors;
  std::string& textTyped;
  std::unique_ptr<Stage> stage;
  std::unique_ptr<StagedControl> control;
};

TEST(ThreadState, EndsWithAnErrorForThoseWhoOutliveIt) {
  const DataDirectory directory{{series("A", 20)}};
  std::vector<std::int32_t> errors;
  std::string textTyped;
  std::thread{[&] {
    // Made before the thread's state is, so destroyed after it, as a static object is on the main
    // thread.
    thread_local LateHost host{errors, textTyped, nullptr, nullptr};
    host.stage = std::make_unique<Stage>();
    host.stage->start(directory);
    host.control = host.stage->addControl();
    host.stage->focus(*host.control);
    host.stage->type(u"a");
    EXPECT_EQ(host.control->entries().size(), 9U);
  }}.join();
  EXPECT_EQ(errors, std::vector<std::int32_t>(7, 91));
  EXPECT_EQ(textTyped, "ab") << "the widgets go on without lookups";
}

}  // namespace
}  // namespace keyscout::test
