#include "controller/controller_fixture.h"

namespace keyscout::test {
namespace {

TEST_F(Controller, StartsUp) {
  controller.setKeyscoutLocked(True);
  EXPECT_EQ(controller.init(), True);
  EXPECT_FALSE(controller.KeyscoutEnabled());
  EXPECT_TRUE(controller.KeyscoutLocked()) << "starting up lifts no lock";
  EXPECT_EQ(stage.takeTrace(),
            (Strings{"> init()",
                     "- Calling keyscoutModule.authenticateRequiredProperties(" +
                         toUtf8(controller.KeyscoutDirectory()) + ", catindex.txt, download.txt)",
                     "> authenticateRequiredProperties()", "- Keyscout Authenticated!!",
                     "< authenticateRequiredProperties()", "> checkDownloadVersion",
                     "< checkDownloadVersion", "> checkCatalogControlFile",
                     "< checkCatalogControlFile", "> initialize", "< initialize", "< init()"}));
}

TEST_F(Controller, StartsUpWithTheSettingsThatItFound) {
  // The trace service is the host's, which may change settings in it.
  struct Hook final : CallHook {
    void onCall(std::string_view operation) override { act(operation); }
    std::function<void(std::string_view)> act = [](std::string_view) {};
  } hook;
  Stage meddling{&hook};
  meddling.controller.setKeyscoutDirectory(u"C:\\before\\");
  meddling.controller.setKeyscoutIndexFile(u"index");
  int entered = 0;
  hook.act = [&](std::string_view operation) {
    if (operation == "enterProcedure" && ++entered == 2)
      meddling.controller.setKeyscoutDirectory(u"C:\\behind\\");
  };
  expectRefusal([&] { return meddling.controller.init(); }, Codes::RequiredFilesMissing,
                u"C:\\before\\ cannot be found.");
}

TEST_F(Controller, LocksWhenAStartUpFails) {
  controller.setIsInitialized(True);
  directory.write("download.txt", "0");
  EXPECT_EQ(refusalOf([&] { return controller.init(); }).number(),
            static_cast<std::int32_t>(Codes::CatalogFormatChanged));
  EXPECT_TRUE(controller.KeyscoutLocked());
  EXPECT_TRUE(controller.isInitialized());
  const Strings trace = stage.takeTrace();
  EXPECT_EQ(trace.back(), "! authenticateRequiredProperties -2147218503");

  controller.setKeyscoutLocked(False);
  directory.write("download.txt", "FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]");
  directory.remove("catcontrol.txt");
  EXPECT_EQ(controller.init(), False);
  EXPECT_FALSE(controller.isInitialized());
  EXPECT_FALSE(controller.KeyscoutLocked());
}

TEST_F(Controller, UnlocksOnceTheDataIsThere) {
  controller.setKeyscoutLocked(True);
  directory.write("catcontrol.txt", "INPROCESS");
  EXPECT_EQ(errorOf([&] { return controller.tryToUnlock(); }),
            static_cast<std::int32_t>(Codes::ControlStatusInProcess));
  directory.remove("catcontrol.txt");
  EXPECT_EQ(controller.tryToUnlock(), False);
  EXPECT_TRUE(controller.KeyscoutLocked());
  directory.write("catcontrol.txt", "READY");
  EXPECT_EQ(controller.tryToUnlock(), True);
  EXPECT_FALSE(controller.KeyscoutLocked());
  EXPECT_EQ(controller.resetLastTableNumber(), True);
  EXPECT_EQ(shared().lastTableNumber, -1);
}

}  // namespace
}  // namespace keyscout::test
