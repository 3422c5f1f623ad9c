#include "controller/controller_fixture.h"

namespace keyscout::test {
namespace {

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

  directory.write("brandinfo.txt", "\r\n");
  controller.initialize();
  EXPECT_EQ(shared().brandLookup->count(), 0U);
  EXPECT_EQ(stage.takeTrace(), (Strings{"> initialize", "< initialize"}));

  // The end mark of old texts is neither a table nor a brand.
  directory.write("catindex.txt", indexLine("0", {"A1", "X"}, {"A9", "Y"}) + "\r\n\x1A");
  directory.write("brandinfo.txt", "ACME\r\n\x1A");
  controller.initialize();
  EXPECT_EQ(shared().getTableCount(), 1);
  EXPECT_EQ(shared().brandLookup->count(), 1U);
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

}  // namespace
}  // namespace keyscout::test
