#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <thread>

#include "base/utf8.h"
#include "shared/error_codes.h"
#include "support/stage.h"

namespace keyscout::test {
namespace {

using Codes = KeyscoutErrorCodes;

class Controller : public testing::Test {
 protected:
  Controller() { stage.configure(directory); }

  /// The error that `action` fails with, checked to come from the controller.
  static Error refusalOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const Error& error) {
      EXPECT_EQ(error.source(), u"RWKeyscoutController");
      return error;
    }
    ADD_FAILURE() << "no error";
    return Error{0, u"", u""};
  }
  static void expectRefusal(const std::function<void()>& action, Codes code, StringView sentence) {
    const Error error = refusalOf(action);
    EXPECT_EQ(error.number(), static_cast<std::int32_t>(code));
    EXPECT_EQ(toUtf8(error.description()), toUtf8(sentence));
  }

  DataDirectory directory{{series("A", 3, {"ACME", "BOLT"}), series("B", 3)}};
  Stage stage;
  RWKeyscoutController& controller = stage.controller;
};

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

TEST_F(Controller, LoadsIndexAndBrands) {
  directory.writeLines("catindex.txt", {indexLine("7", {"A1", "X", "11"}, {"A9", "Y", "12"}), "   ",
                                        std::string(150, 'a') + std::string(50, 'b')});
  directory.writeLines("brandinfo.txt",
                       {"ACME", "  ", "bolt", "BOLT", "CIRA      text", std::string(60, 'x')});
  controller.initialize();
  ASSERT_EQ(shared().getTableCount(), 2);
  const CatalogTableEntry& first = shared().catalogTableIndex[0];
  EXPECT_EQ(first.tableNumber + u'|' + first.firstIndex + u'|' + first.firstCatalog + u'|' +
                first.firstBrand + u'|' + first.lastIndex + u'|' + first.lastCatalog + u'|' +
                first.lastBrand,
            u"7|11|A1|X|12|A9|Y");
  EXPECT_EQ(shared().catalogTableIndex[1].lastBrand, String(50, u'b'));
  Strings brands;
  for (const auto& entry : *shared().brandLookup) brands.push_back(toUtf8(*entry.key));
  EXPECT_EQ(brands, (Strings{"ACME", "bolt", "CIRA      text", std::string(50, 'x')}));
  EXPECT_EQ(shared().brandLookup->item(u"cira      text"), u"text");
  EXPECT_EQ(controller.isInitialized(), True);
  EXPECT_EQ(stage.takeTrace(), (Strings{"> initialize", "< initialize"}));

  // The end mark of old texts is neither a table nor a brand.
  directory.write("catindex.txt", indexLine("0", {"A1", "X"}, {"A9", "Y"}) + "\r\n\x1A");
  directory.write("brandinfo.txt", "ACME\r\n\x1A");
  controller.initialize();
  EXPECT_EQ(shared().getTableCount(), 1);
  EXPECT_EQ(shared().brandLookup->count(), 1U);
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

TEST_F(Controller, GoesOnWithoutTheRestOfABrandFileThatStaysUnreadable) {
  struct Hook final : CallHook {
    void onCall(std::string_view operation) override {
      if (operation != "readLine") return;
      ++line;
      if (line >= firstBad && line <= lastBad)
        throw platformFailure(PlatformError::fileAccess, u"test");
    }
    int line = 0, firstBad = 0, lastBad = 0;
  } hook;
  directory.writeLines("brandinfo.txt", {"ACME", "BOLT", "CIRA"});
  struct Case {
    int firstBad, lastBad;  // lines, of which the index has two
    Strings brands;
    std::string lastOfTrace;
  };
  const Case cases[] = {{4, 9999, {"ACME"}, "< initialize"},
                        {4, 4, {"ACME", "BOLT", "CIRA"}, "< initialize"},
                        {3, 3, {}, "! initialize 75"}};
  for (const Case& c : cases) {
    Stage failing{&hook};
    failing.configure(directory);
    hook.line = 0;
    hook.firstBad = c.firstBad;
    hook.lastBad = c.lastBad;
    failing.controller.initialize();
    Strings brands;
    for (const auto& entry : *shared().brandLookup) brands.push_back(toUtf8(*entry.key));
    EXPECT_EQ(brands, c.brands);
    EXPECT_EQ(static_cast<bool>(failing.controller.isInitialized()), !brands.empty());
    EXPECT_EQ(failing.takeTrace().back(), c.lastOfTrace);
    EXPECT_LT(hook.line, 1000) << "it gives up at last";
  }
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

TEST_F(Controller, LoadsAtMost1001Tables) {
  for (const std::size_t lines : {1001UL, 1002UL}) {
    controller.setIsInitialized(False);
    directory.writeLines("catindex.txt", Strings(lines, indexLine("0", {"A", ""}, {"B", ""})));
    controller.initialize();
    EXPECT_EQ(shared().getTableCount(), 1001);
    EXPECT_EQ(static_cast<bool>(controller.isInitialized()), lines == 1001);
    EXPECT_EQ(shared().brandLookup->count() != 0, lines == 1001);
  }
  EXPECT_EQ(shared().getTableNumber(1000), u"0");
  for (const std::int16_t outside : {std::int16_t{-1}, std::int16_t{1001}})
    EXPECT_EQ(errorOf([&] { shared().getLastCatalog(outside); }), 9);
}

TEST_F(Controller, KeepsWhatALoadGotBeforeItEnded) {
  controller.initialize();
  controller.setIsInitialized(False);
  stage.takeTrace();
  directory.remove("brandinfo.txt");
  controller.initialize();
  EXPECT_EQ(shared().getTableCount(), 2);
  EXPECT_EQ(shared().brandLookup->count(), 0U);
  EXPECT_FALSE(controller.isInitialized());
  EXPECT_EQ(stage.takeTrace(), (Strings{"> initialize", "! initialize 53"}));

  directory.remove("catindex.txt");
  controller.initialize();
  EXPECT_EQ(shared().getTableCount(), 0);
  EXPECT_EQ(shared().getFirstCatalog(1), u"B000") << "records beyond the count stay";
}

TEST_F(Controller, ChecksTheDownloadsHeader) {
  const std::string header = "FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]";
  constexpr StringView inconsistent =
      u"The version of the catalog numbers downloaded is not consistant with\r\n"
      u"the current version of Tessaly.";
  for (const std::string& good : {header, header + "\r\nanything", header + "\n"}) {
    directory.write("download.txt", good);
    EXPECT_EQ(controller.checkDownloadVersion(), True) << good;
  }
  for (const std::string& bad :
       {header + " ", " " + header, std::string{"format"}, std::string{}}) {
    directory.write("download.txt", bad);
    expectRefusal([&] { return controller.checkDownloadVersion(); }, Codes::InconsistantVersion,
                  inconsistent);
  }
  directory.write("download.txt", "0 old records");
  expectRefusal([&] { return controller.checkDownloadVersion(); }, Codes::CatalogFormatChanged,
                u"The format of the catalog number download has changed.");
  directory.remove("download.txt");
  expectRefusal([&] { return controller.checkDownloadVersion(); }, Codes::RequiredFilesMissing,
                u"The catalog number download file does not exist.");
  stage.takeTrace();
  controller.setKeyscoutDirectory(u"/nowhere/at/all");
  EXPECT_EQ(controller.checkDownloadVersion(), False);
  EXPECT_EQ(stage.takeTrace(), (Strings{"> checkDownloadVersion", "! checkDownloadVersion 76"}));
}

TEST_F(Controller, ReadsTheControlFile) {
  constexpr StringView inProcess =
      u"Keyscout will be enabled as soon as the catalog number download has been completed.";
  constexpr StringView corrupt =
      u"Keyscout will not be available because the latest download contains invalid data.";
  for (const std::string ready : {"READY", "READY since Monday", "READY\r\nmore", "REA\r\nDY"}) {
    directory.write("catcontrol.txt", ready);
    EXPECT_EQ(controller.checkCatalogControlFile(), True) << ready;
  }
  for (const std::string text : {"INPROCESS", "INPRO\r\nCESS\r\n", "INPROCESS\r\n\x1A"}) {
    directory.write("catcontrol.txt", text);
    expectRefusal([&] { return controller.checkCatalogControlFile(); },
                  Codes::ControlStatusInProcess, inProcess);
  }
  for (const std::string text : {"CORRUPT", "ready", "INPROCESS ", " READY", "", "what?"}) {
    directory.write("catcontrol.txt", text);
    expectRefusal([&] { return controller.checkCatalogControlFile(); }, Codes::ControlStatusCorrupt,
                  corrupt);
  }
  directory.remove("catcontrol.txt");
  EXPECT_EQ(controller.checkCatalogControlFile(), False);
}

TEST_F(Controller, TellsTheAgeOfTheIndexToTheSecond) {
  using namespace std::chrono;
  const auto written =
      stage.nativeFiles.lastModified(directory.hostPath() + String{DataDirectory::indexFile});
  struct Case {
    seconds age;
    std::int16_t days;
    bool old;
  };
  const Case cases[] = {{days{7}, 7, false},
                        {days{7} + seconds{1}, 7, true},
                        {days{7} + hours{12}, 7, true},
                        {days{1}, 1, false},
                        {days{1} + seconds{1}, 1, true},
                        {days{400}, 0, false},
                        {days{400}, -1, false},
                        {-days{1}, 1, false}};
  for (const Case& c : cases) {
    stage.clock.time = written + c.age;
    const auto ask = [&] { controller.needToUpdate(c.days); };
    if (c.old) {
      expectRefusal(ask, Codes::CatalogFilesOld, u"Keyscout data is not current.");
    } else {
      EXPECT_EQ(errorOf(ask), 0) << c.days;
    }
  }
  EXPECT_EQ(stage.takeTrace(), Strings{});
  directory.remove("catindex.txt");
  EXPECT_EQ(errorOf([&] { controller.needToUpdate(0); }), 53);
  ASSERT_EQ(stage.trace->calls().size(), 1U);
  EXPECT_EQ(stage.trace->calls()[0].className, u"keyscoutModule");
  EXPECT_EQ(stage.takeTrace(), Strings{"! needToUpdate 53"});
}

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
