#include <gtest/gtest.h>

#include <functional>

#include "base/utf8.h"
#include "support/stage.h"

// On widgets in memory alone: those of a system tell nobody of the calls that they get.

namespace keyscout::test {
namespace {

TEST(LookupThatIsRefused, ClosesTheListBeforeOrAfterItIsCalledUnloaded) {
  const DataDirectory directory{{series("A", 20), series("B", 20)}};
  struct Case {
    std::string name;
    std::function<void(Stage&, StagedControl&, std::function<void()>&)> act;
    bool loadedAtClosing;
    std::string exit;
  };
  const auto toLastEntry = [](Stage& stage) {
    for (const std::int16_t key : {KeyCodes::down, KeyCodes::pageDown, KeyCodes::pageDown})
      stage.press(key);
  };
  const Case cases[] = {
      {"typing, and the text is emptied meanwhile",
       [](Stage& stage, StagedControl& control, std::function<void()>& whenDrawingStops) {
         control.control.setSelStart(0);
         control.control.setSelLength(1);
         whenDrawingStops = [&] { control.surface->textBox().setText(u""); };
         stage.form->paste(u"b");
       },
       false, "< keyInKeyscout"},
      {"typing with a brand that is not known",
       [](Stage& stage, StagedControl& control, std::function<void()>&) {
         control.control.setBrand(u"NOBODY");
         stage.type(u"2");
       },
       true, "< keyInKeyscout"},
      {"scrolling, and the text is empty",
       [&](Stage& stage, StagedControl& control, std::function<void()>&) {
         toLastEntry(stage);
         control.control.setText(u"");
         stage.press(KeyCodes::down);
       },
       true, "< scrollDownKeyscoutWithBrand"},
      {"scrolling with a brand that is not known",
       [&](Stage& stage, StagedControl& control, std::function<void()>&) {
         toLastEntry(stage);
         control.control.setBrand(u"NOBODY");
         stage.press(KeyCodes::down);
       },
       true, "< keyInKeyscout"},
  };
  for (const Case& c : cases) {
    struct Hook final : CallHook {
      void onCall(std::string_view operation) override {
        if (operation == "setRedraw") std::exchange(whenDrawingStops, [] {})();
        if (operation == "showDropDown" && control) loaded = control->lookupFields().listLoaded;
      }
      std::function<void()> whenDrawingStops = [] {};
      const keyscoutControl* control = nullptr;
      Boolean loaded;
    } hook;
    Stage stage{&hook};
    stage.start(directory);
    const auto control = stage.addControl();
    stage.focus(*control);
    stage.type(u"a");
    hook.control = &control->control;
    stage.takeTrace();
    c.act(stage, *control, hook.whenDrawingStops);
    Strings exits = stage.takeTrace();
    std::erase_if(exits, [](const std::string& line) {
      return line != "< keyInKeyscout" && line != "< scrollDownKeyscoutWithBrand";
    });
    ASSERT_FALSE(exits.empty()) << c.name;
    EXPECT_EQ(exits.back(), c.exit) << c.name;
    EXPECT_TRUE(control->surface->listView()->redraws) << c.name;
    EXPECT_EQ(static_cast<bool>(hook.loaded), c.loadedAtClosing) << c.name;
    EXPECT_FALSE(control->control.lookupFields().listLoaded) << c.name;
    EXPECT_FALSE(control->isDropped()) << c.name;
    EXPECT_FALSE(stage.controller.KeyscoutLocked()) << c.name;
    hook.control = nullptr;
  }
}

}  // namespace
}  // namespace keyscout::test
