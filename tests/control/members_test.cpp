// What a host reads and sets.

#include "control/control_fixture.h"

#include "base/utf8.h"

namespace keyscout::test {
namespace {

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

}  // namespace
}  // namespace keyscout::test
