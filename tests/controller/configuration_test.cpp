#include <thread>

#include "controller/controller_fixture.h"

namespace keyscout::test {
namespace {

TEST_F(Controller, KeepsSettingsForEveryInstanceOnTheThread) {
  const std::pair<StringView, StringView> directories[] = {
      {u"C:\\data", u"C:\\data\\"}, {u"C:\\data\\", u"C:\\data\\"}, {u"", u"\\"}, {u"a/", u"a/\\"}};
  RWKeyscoutController other{stage.platform};
  for (const auto& [given, stored] : directories) {
    controller.setKeyscoutDirectory(given);
    EXPECT_EQ(other.KeyscoutDirectory(), stored);
  }
  controller.setIsInitialized(Boolean::stored(5));
  EXPECT_EQ(other.KeyscoutInitialized().number(), 5);
  EXPECT_TRUE(other.isInitialized());

  std::thread{[&] {
    RWKeyscoutController elsewhere{stage.platform};
    EXPECT_EQ(elsewhere.KeyscoutDirectory(), u"");
    EXPECT_FALSE(elsewhere.isInitialized());
  }}.join();
}

TEST_F(Controller, AuthenticatesWhenNothingIsEmpty) {
  struct Case {
    StringView directory, index, download, emptySetting, sentence;
  };
  const Case cases[] = {
      {u"", u"i", u"d", u"strKeyscoutDirectory", u" cannot be found."},
      {u"dir\\", u"", u"d", u"strKeyscoutIndexFile", u"dir\\ cannot be found."},
      {u"dir\\", u"i", u"", u"strCatalogNumbersDownloadFile", u"dir\\ cannot be found."}};
  for (const Case& c : cases) {
    controller.setIsKeyscoutAuthenticated(True);
    stage.takeTrace();
    expectRefusal(
        [&] { controller.authenticateRequiredProperties(c.directory, c.index, c.download); },
        Codes::RequiredFilesMissing, c.sentence);
    EXPECT_FALSE(controller.isKeyscoutAuthenticated());
    EXPECT_EQ(
        stage.takeTrace(),
        (Strings{"> authenticateRequiredProperties()", "- Len(" + toUtf8(c.emptySetting) + ") < 1",
                 "- Keyscout Not Authenticated", "< authenticateRequiredProperties()",
                 "! authenticateRequiredProperties -2147218504"}));
  }
  controller.authenticateRequiredProperties(u"d", u"i", u"f");
  EXPECT_EQ(controller.isKeyscoutAuthenticated(), True);
}

TEST_F(Controller, KeepsForTheHostWhatItSets) {
  RWKeyscoutController other{stage.platform};
  controller.setUpdateURL(u"url");
  controller.setUpdateURLFile(u"file");
  controller.setUpdaterExe(u"exe");
  EXPECT_EQ(other.updateURL(), u"url");
  EXPECT_EQ(other.updateURLFile(), u"file");
  EXPECT_EQ(other.updaterExe(), u"exe");
  EXPECT_EQ(other.KeyscoutIndexFile(), u"catindex.txt");
  EXPECT_EQ(other.CatalogNumbersDownloadFile(), u"download.txt");
  const auto brands = std::make_shared<LocalBrandList>();
  controller.setAuthorizedBrands(brands);
  EXPECT_EQ(other.authorizedBrands(), brands);
  using Getter = std::function<Boolean(const RWKeyscoutController&)>;
  using Setter = std::function<void(RWKeyscoutController&, Boolean)>;
  const std::pair<Getter, Setter> flags[] = {
      {&RWKeyscoutController::hasdataIntegrity, &RWKeyscoutController::setHasdataIntegrity},
      {&RWKeyscoutController::isInitialized, &RWKeyscoutController::setIsInitialized},
      {&RWKeyscoutController::isKeyscoutAuthenticated,
       &RWKeyscoutController::setIsKeyscoutAuthenticated},
      {&RWKeyscoutController::KeyscoutEnabled, &RWKeyscoutController::setKeyscoutEnabled},
      {&RWKeyscoutController::KeyscoutLocked, &RWKeyscoutController::setKeyscoutLocked}};
  for (const auto& [get, set] : flags) {
    EXPECT_FALSE(get(other));
    set(controller, Boolean::stored(5));
    EXPECT_EQ(get(other).number(), 5);
    set(controller, False);
  }

  RWKeyscoutCatalogData record;
  record.setCatalogNumber(u"A-1");
  record.setCatalogBrand(u"ACME");
  record.setCatalogIndex(-7);
  EXPECT_EQ(record.CatalogNumber(), u"A-1");
  EXPECT_EQ(record.CatalogBrand(), u"ACME");
  EXPECT_EQ(record.CatalogIndex(), -7);
}

TEST_F(Controller, LeavesSettingsAndServicesToTheNextHostOfTheThread) {
  controller.resetLastTableNumber();
  stage.takeTrace();
  const auto ownTrace = std::make_shared<CollectingTrace>();
  {
    LocalLibrary nextLibrary{ownTrace};
    Platform platform{stage.nativeFiles, stage.clock, windows1252(),
                      stage.textRules,   stage.box,   nextLibrary};
    RWKeyscoutController next{platform};
    EXPECT_EQ(next.KeyscoutIndexFile(), u"catindex.txt");
    next.resetLastTableNumber();
  }
  EXPECT_EQ(ownTrace->calls().size(), 0U);
  EXPECT_EQ(stage.takeTrace(), (Strings{"> resetLastTableNumber", "< resetLastTableNumber"}));
}

}  // namespace
}  // namespace keyscout::test
