// Controls that come and go, on widgets in memory, which show what real ones hide.

#include <gtest/gtest.h>

#include "support/stage.h"

namespace keyscout::test {
namespace {

class Life : public testing::Test {
 protected:
  Life() { stage.start(directory); }

  DataDirectory directory{{series("A", 20)}};
  Stage stage;
};

TEST_F(Life, OfAControlMayEndBeforeThatOfItsSurface) {
  const auto surface = stage.form->addSurface();
  EventLog events;
  for (int round = 0; round < 2; ++round) {
    auto control = std::make_unique<keyscoutControl>(stage.platform, *surface, events);
    stage.form->moveFocus(*surface, FocusPlace::textBox);
    stage.type(u"a");
    EXPECT_EQ(surface->listView()->entries.size(), 9U);
    stage.form->moveFocus(*surface, FocusPlace::list);
    control.reset();
    EXPECT_FALSE(surface->listView()) << "its list goes with it";
    EXPECT_EQ(surface->focusPlace(), std::nullopt);
    events.take();
    stage.form->moveFocus(*surface, FocusPlace::textBox);
    stage.type(u"b");
    surface->resize(50);
    surface->textBox().setText(u"");
    stage.form->leaveFocus();
    EXPECT_EQ(events.take(), Strings{}) << "nobody is told any more";
  }
}

TEST_F(Life, GoesOnWhenTheSurfaceAloneLosesTheFocus) {
  const auto control = stage.addControl();
  stage.focus(*control);
  stage.type(u"a");
  stage.focus(*control, FocusPlace::surface);
  EXPECT_TRUE(control->control.isListShowing()) << "the focus is still in the control";
  stage.form->leaveFocus();
  EXPECT_FALSE(control->control.isListShowing());
  EXPECT_TRUE(control->isDropped()) << "only the flag is cleared, no widget is touched";
}

/// Notes what is done to the surface itself, of which a surface in memory keeps nothing.
struct WatchedSurface final : ControlSurface {
  explicit WatchedSurface(ControlSurface& surface) : real(surface) {}

  void setObservers(SurfaceObserver* surface, TextBoxObserver* textBox) override {
    real.setObservers(surface, textBox);
  }
  TextBox& textBox() override { return real.textBox(); }
  DropDownList& addDropDownList(StringView name, DropDownListObserver& observer) override {
    return real.addDropDownList(name, observer);
  }
  void removeChild(StringView name) override { real.removeChild(name); }
  float width() const override { return real.width(); }
  void setEnabled(Boolean enabled) override { notes.push_back(std::to_string(enabled.number())); }
  void setMousePointer(std::int16_t shape) override {
    notes.push_back("pointer " + std::to_string(shape));
  }
  void beginHostCall() override { real.beginHostCall(); }
  void endHostCall() noexcept override { real.endHostCall(); }

  ControlSurface& real;
  Strings notes;
};

TEST_F(Life, EnablesTheSurfaceAndGivesThePointerBack) {
  const auto real = stage.form->addSurface();
  WatchedSurface surface{*real};
  EventLog events;
  keyscoutControl control{stage.platform, surface, events};
  control.setEnabled(False);
  EXPECT_FALSE(control.Enabled());
  control.setEnabled(Boolean::stored(3));
  EXPECT_EQ(control.Enabled().number(), 3);
  stage.form->moveFocus(*real, FocusPlace::textBox);
  stage.form->paste(u"a");
  EXPECT_EQ(surface.notes, (Strings{"0", "3", "pointer 0"}));
}

}  // namespace
}  // namespace keyscout::test
