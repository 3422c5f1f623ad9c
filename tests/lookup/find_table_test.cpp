#include "lookup/lookup_fixture.h"

namespace keyscout::test {
namespace {

TEST_F(Lookup, SearchesFromWhereTheLastSearchEnded) {
  open({series("A", 1), series("D", 1), series("G", 1)});
  struct Case {
    StringView text;
    std::int16_t found;
    std::int16_t nextStart;
  };
  const Case cases[] = {{u"G", 2, 2},  {u"B", 1, 1}, {u"A", 0, 0},
                        {u"H", -1, 0}, {u"E", 2, 2}, {u"0", 0, 0}};
  for (const Case& c : cases) {
    enter(u"");
    enter(c.text);
    EXPECT_EQ(fields().tableSearchStart, c.nextStart) << toUtf8(c.text);
    const bool found = fields().currentTableIndex >= 0;
    EXPECT_EQ(found, c.found >= 0) << toUtf8(c.text);
  }

  enter(u"G");
  stage.controller.resetLastTableNumber();
  const auto other = stage.addControl();
  stage.focus(*other);
  stage.type(u"a");
  EXPECT_EQ(shared().lastTableNumber, 0) << "the first control that searches clears the request";
  EXPECT_EQ(fields().tableSearchStart, 2) << "and the others keep their start";
}

TEST_F(Lookup, WalksAnIndexOutOfOrderFromTableToTable) {
  open({series("G", 1), series("A", 1), series("D", 1)});
  enter(u"C");
  EXPECT_EQ(control->entries().front(), "G000") << "the first table that ends above the text";
  EXPECT_EQ(fields().tableSearchStart, 0);
}

TEST_F(Lookup, GivesUpWhereNoTableCoversTheText) {
  open({series("A", 3)});
  enter(u"A");
  const Strings before = control->entries();
  enter(u"Z");
  EXPECT_EQ(control->entries(), Strings{});
  EXPECT_TRUE(fields().tableLoadPending);
  EXPECT_TRUE(control->isDropped()) << "neither dropped down nor closed";
  EXPECT_TRUE(stage.box.texts.empty());
}

TEST_F(Lookup, FindsNoTableBeforeAnIndexWasLoaded) {
  control = stage.addControl();
  stage.controller.setIsKeyscoutAuthenticated(True);
  stage.controller.setKeyscoutEnabled(True);
  stage.focus(*control);
  stage.type(u"A");
  const Strings trace = stage.takeTrace();
  EXPECT_NE(std::ranges::find(trace, "! findTableNumber 9"), trace.end());
  EXPECT_FALSE(stage.controller.KeyscoutLocked());
}

TEST_F(Lookup, NamesTheFirstTableByItsNumberAndTheNextByTheirPositions) {
  open({series("A", 2), series("B", 2), series("C", 2)});
  directory->writeLines("catindex.txt", {indexLine("5", {"A000", ""}, {"A001", ""}),
                                         indexLine("7", {"B000", ""}, {"B001", ""})});
  directory->writeLines("5.txt", {tableLine({"A000", "ACME"}), tableLine({"A001", "ACME"})});
  directory->writeLines("1.txt", {tableLine({"B000", "ACME"})});
  stage.controller.initialize();
  enter(u"A");
  EXPECT_EQ(control->entries(), filled({"A000", "A001", "B000"}));
}

}  // namespace
}  // namespace keyscout::test
