#include "lookup/lookup_fixture.h"

namespace keyscout::test {
namespace {

TEST_F(Lookup, ListsNineFromTheFirstAtOrAboveTheText) {
  open({series("A", 12), series("D", 12), series("G", 4)});
  struct Case {
    StringView text;
    std::string first;
    std::size_t entries;
    std::int16_t table;
  };
  const Case cases[] = {{u"a", "A000", 9, 0},    {u"A003", "A003", 9, 0}, {u"a0035", "A004", 9, 1},
                        {u"0", "A000", 9, 0},    {u"A011", "A011", 9, 1}, {u"B", "D000", 9, 1},
                        {u"d006", "D006", 9, 2}, {u"D009", "D009", 8, 3}, {u"G003", "G003", 8, 3}};
  for (const Case& c : cases) {
    enter(u"~");  // above every number; also makes the next text no longer than the last
    enter(u"~~~~~~");
    enter(c.text);
    const Strings entries = control->entries();
    ASSERT_EQ(entries.size(), c.entries) << toUtf8(c.text);
    EXPECT_EQ(entries.front(), c.first) << toUtf8(c.text);
    EXPECT_EQ(fields().currentTableIndex, c.table) << toUtf8(c.text);
    EXPECT_TRUE(control->isDropped());
    EXPECT_TRUE(control->surface->listView()->redraws);
    EXPECT_EQ(control->selected(), -1);
  }
  EXPECT_EQ(control->entries(), filled({"G003"}));
  EXPECT_TRUE(fields().endOfCatalogReached);
  EXPECT_EQ(fields().catalogEntries.count(), 1U);
}

TEST_F(Lookup, AdmitsByBrandAuthorizationAndOnce) {
  open({{{"A1", "ACME"},
         {"A2", "acme"},
         {"A3", "BOLT"},
         {"A4", ""},
         {"a1", "ACME"},
         {"a5", "CIRA"}}});
  directory->writeLines("brandinfo.txt", {"ACME", "acme", "BOLT", "CIRA"});
  const auto authorize = [&](const std::vector<StringView>& brands) {
    const auto list = std::make_shared<LocalBrandList>();
    for (const StringView brand : brands) list->add(brand);
    list->addPlain(u"CIRA");
    control->control.setAuthorizedBrands(list.get());
  };
  struct Case {
    StringView brand;
    std::vector<StringView> authorized;
    Strings expected;
  };
  const Case cases[] = {{u"", {}, {"A1", "A2", "A3", "A4", "a5"}},
                        {u"ACME", {}, {"A1"}},
                        {u"acme", {}, {"A2"}},
                        {u"", {u"bolt"}, {"A3"}},
                        {u"", {u"Acme"}, {"A1", "A2"}},
                        {u"", {u""}, {"A4"}},
                        {u"ACME", {u"BOLT"}, {}}};
  for (const Case& c : cases) {
    if (c.authorized.empty()) {
      control->control.setAuthorizedBrands(nullptr);
    } else {
      authorize(c.authorized);
    }
    control->control.setBrand(c.brand);
    enter(u"");
    enter(u"A");
    EXPECT_EQ(control->entries(), filled(c.expected)) << toUtf8(c.brand);
    EXPECT_EQ(fields().catalogEntries.count(), c.expected.size()) << toUtf8(c.brand);
  }
}

TEST_F(Lookup, RefusesBrandsThatTheBrandFileDoesNotHold) {
  open({series("A", 3)});
  enter(u"A");
  control->control.setBrand(u"NOBODY");
  enter(u"B");
  EXPECT_FALSE(control->isDropped());
  EXPECT_FALSE(fields().listLoaded);
  EXPECT_TRUE(control->surface->listView()->redraws);
  EXPECT_TRUE(stage.box.texts.empty());
  control->control.setBrand(u"acme");
  enter(u"A");
  EXPECT_TRUE(control->isDropped()) << "a known brand in another letter case";
  shared().brandLookup.reset();
  control->control.setBrand(u"NOBODY");
  enter(u"B");
  EXPECT_TRUE(fields().tableLoadPending) << "nothing is refused before brands are loaded";
}

TEST_F(Lookup, KeepsWhatStillFitsAGrownText) {
  open({series("A", 30)});
  enter(u"A");
  stage.takeTrace();
  stage.type(u"0");
  Strings trace = stage.takeTrace();
  EXPECT_EQ(std::ranges::count(trace, "> loadKeyscoutCombo"), 0)
      << "nine still fit: nothing is read";
  enter(u"a004");
  EXPECT_EQ(control->entries(),
            (Strings{"A004", "A005", "A006", "A007", "A008", "A009", "A010", "A011", "A012"}));
  EXPECT_EQ(fields().catalogEntries.count(), 9U);
  EXPECT_EQ(fields().lastLookupText, u"a004");
  enter(u"a001");  // as long as before: rebuilt
  EXPECT_EQ(control->entries().front(), "A001");
  // A longer text that does not extend the last one only drops from the top.
  enter(u"A0001");
  EXPECT_EQ(control->entries().front(), "A001");
}

TEST_F(Lookup, StopsAtTheEndOfTheCatalogUntilTheTextIsNoLonger) {
  open({series("A", 3)});
  enter(u"A");
  EXPECT_EQ(control->entries(), filled({"A000", "A001", "A002"}));
  enter(u"A001");
  EXPECT_EQ(control->entries(), filled({"A000", "A001", "A002"})) << "grown: nothing happens";
  EXPECT_EQ(fields().lastLookupText, u"A");
  enter(u"B");
  EXPECT_EQ(control->entries(), Strings{});
  enter(u"A");
  enter(u"");
  EXPECT_FALSE(fields().endOfCatalogReached);
  EXPECT_FALSE(control->isDropped());
}

TEST_F(Lookup, TakesTheLastLineOfATableThatLiesBelowTheText) {
  open({series("A", 2), series("C", 1)});
  directory->writeLines("catindex.txt", {indexLine("0", {"A000", ""}, {"B", ""}),
                                         indexLine("1", {"C000", ""}, {"C000", ""})});
  stage.controller.initialize();
  enter(u"B");
  EXPECT_EQ(control->entries(), filled({"A001", "C000"}));
  directory->write("0.txt", "");
  enter(u"A");
  EXPECT_EQ(control->entries(), filled({"C000"})) << "a table without a line has no candidate";
}

TEST_F(Lookup, OrdersByUnicodeAndNotByBytes) {
  // 0x80 is the euro sign, far above 0xC9, which is a capital E with an acute accent.
  open({{{"A\xC9", "\xC9LAN"}, {"A\x80", "ACME"}}});
  enter(u"a\u00EA");
  EXPECT_EQ(control->entries(), filled({"A\u20AC"}));
  enter(u"a\u00E8");
  EXPECT_EQ(control->entries(), filled({"A\u00C9", "A\u20AC"}));
  EXPECT_EQ(toUtf8(fields().catalogEntries.item(u"a\u00E9").CatalogBrand()), "\u00C9LAN");
}

TEST_F(Lookup, AnswersEveryBadTableWithLockMessageAndUpdate) {
  struct Case {
    std::string name;
    std::function<void()> damage;
    std::string trace;
    Strings left;
  };
  const std::string good = tableLine({"A000", "ACME"});
  const auto write = [&](const Strings& lines) {
    return [this, lines] { directory->writeLines("0.txt", lines); };
  };
  const Strings eightEmpty(8);
  const Case cases[] = {
      {"missing", [&] { directory->remove("0.txt"); }, "! loadKeyscoutCombo 53", {}},
      {"next missing",
       [&] { directory->remove("1.txt"); },
       "! loadKeyscoutCombo 75",
       {"A000", "A001", "", "", "", "", "", "", "", ""}},
      {"short line", write({good, std::string(69, 'A')}), "! loadKeyscoutCombo 5", {"A000"}},
      {"bad index",
       write({good, tableLine({"A001", "ACME", "12x"})}),
       "! loadKeyscoutCombo 13",
       {"A000", "A001"}},
  };
  for (const Case& c : cases) {
    open({series("A", 2), series("B", 2)});
    c.damage();
    stage.box.texts.clear();
    stage.box.answer = MessageBoxButton::yes;
    control->events.take();
    enter(u"A");
    const Strings trace = stage.takeTrace();
    EXPECT_NE(std::ranges::find(trace, c.trace), trace.end()) << c.name;
    EXPECT_EQ(control->entries(), c.left) << c.name;
    EXPECT_FALSE(control->isDropped()) << c.name;
    EXPECT_TRUE(control->surface->listView()->redraws) << c.name;
    EXPECT_TRUE(stage.controller.KeyscoutLocked()) << c.name;
    ASSERT_EQ(stage.box.texts.size(), 1U) << c.name;
    EXPECT_EQ(toUtf8(stage.box.texts[0]),
              "An error has occurred while looking up catalog numbers for Keyscout.\r\n"
              "Keyscout has been disabled.  You can continue to work while Keyscout is updated.\r\n"
              "\r\nWould you like to update Keyscout now?");
    EXPECT_EQ(stage.box.lastStyle, 68);
    EXPECT_EQ(stage.box.lastTitle, u"Keyscout");
    EXPECT_EQ(control->events.take(), (Strings{"needBrand", "UpdateKeyscout", "Change"})) << c.name;

    stage.type(u"0");
    EXPECT_EQ(stage.box.texts.size(), 1U) << "asked once: " << c.name;
    stage.controller.setKeyscoutLocked(False);
    control.reset();
  }
}

TEST_F(Lookup, GoesOnInFurtherTablesUnderAFilter) {
  open({{{"A1", "BOLT"}, {"A2", "BOLT"}},
        {{"B1", "ACME"}, {"B2", "BOLT"}, {"B3", "ACME"}},
        {{"C1", "BOLT"}, {"C2", "ACME"}}});
  control->control.setBrand(u"ACME");
  enter(u"a2");
  EXPECT_EQ(control->entries(), filled({"B1", "B3", "C2"}));
}

TEST_F(Lookup, TellsLongNumbersApartByTheirEnds) {
  // Numbers with 5 to 59 characters in common, as makers with long names for their series have.
  const std::string letters = "SERIES-1234567890/ABCDEFGHIJKLMNOPQRSTUVWXYZ.1234567890-ABCDE";
  for (const std::size_t common : {5UL, 6UL, 7UL, 8UL, 9UL, 15UL, 16UL, 17UL, 57UL}) {
    const std::string start = letters.substr(0, common);
    open({series(start, 40)});
    struct Case {
      std::string text, first;
    };
    const Case cases[] = {{start, "000"},        {start + "0", "000"},    {start + "003", "003"},
                          {start + "02", "020"}, {start + "0195", "020"}, {start + "019", "019"}};
    for (const Case& c : cases) {
      enter(u"");
      enter(fromUtf8(c.text));
      ASSERT_EQ(control->entries().size(), 9U) << c.text;
      EXPECT_EQ(control->entries().front(), start + c.first) << c.text;
    }
    control.reset();
  }
}

TEST_F(Lookup, NeverHoldsMoreThan999Entries) {
  std::vector<Entry> entries = series("A", 1000);
  for (int i = 0; i < 50; ++i) entries.push_back({"B" + std::to_string(1000 + i), "ACME"});
  open({entries});
  stage.type(u"A");
  stage.press(KeyCodes::down);
  // Down on the last of the entries adds nine more.
  for (int nines = 1; nines < 120; ++nines)
    for (const std::int16_t key : {KeyCodes::pageDown, KeyCodes::pageDown, KeyCodes::down})
      stage.press(key);
  EXPECT_EQ(control->entries().size(), 999U);
  EXPECT_EQ(control->selected(), 998);
  // Down on the 999th entry still asks for more, and not a line is read for it.
  directory->write("0.txt", "too short a line");
  stage.takeTrace();
  stage.press(KeyCodes::down);
  const Strings trace = stage.takeTrace();
  EXPECT_NE(std::ranges::find(trace, "< loadKeyscoutCombo"), trace.end());
  EXPECT_EQ(control->entries().size(), 999U);
  EXPECT_FALSE(stage.controller.KeyscoutLocked());
}

}  // namespace
}  // namespace keyscout::test
