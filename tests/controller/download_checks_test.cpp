#include <chrono>

#include "controller/controller_fixture.h"

namespace keyscout::test {
namespace {

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

}  // namespace
}  // namespace keyscout::test
