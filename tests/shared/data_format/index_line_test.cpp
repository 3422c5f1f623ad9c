#include "shared/data_format/index_line.h"

#include <gtest/gtest.h>

#include "base/utf8.h"

namespace keyscout::test {
namespace {

String filledTo(String text, std::size_t length) {
  text.resize(length, u' ');
  return text;
}

TEST(IndexLine, HasItsFieldsInTheirColumns) {
  // Tables 1 to 10, then twice index (10), number (60) and brand (50): 250 columns.
  const String first = filledTo(u"  1", 10) + filledTo(u"AB 100", 60) + filledTo(u"ACME", 50);
  const String last = filledTo(u"20", 10) + filledTo(u" AB-119", 60);
  const String table = filledTo(u" 7", 10);
  const struct {
    const char* what;
    String line;
    CatalogTableEntry entry;
  } cases[] = {
      {"whole",
       table + first + last + filledTo(u"BOLT", 50),
       {u"7", u"1", u"ACME", u"AB 100", u"20", u"BOLT", u"AB-119"}},
      {"every column full",
       String(10, u'a') + String(10, u'b') + String(60, u'c') + String(50, u'd') +
           String(10, u'e') + String(60, u'f') + String(50, u'g'),
       {String(10, u'a'), String(10, u'b'), String(50, u'd'), String(60, u'c'), String(10, u'e'),
        String(50, u'g'), String(60, u'f')}},
      {"the last brand is what the line ends with, two characters too many",
       table + first + last + filledTo(u"BOLT", 50) + u"XY",
       {u"7", u"1", u"ACME", u"AB 100", u"20", u"LT" + String(46, u' ') + u"XY", u"AB-119"}},
      {"without it", table + first + last, {u"7", u"1", u"ACME", u"AB 100", u"20", u"", u"AB-119"}},
      {"ending within the last number",
       table + first + filledTo(u"20", 10) + u"AB-119",
       {u"7", u"1", u"ACME", u"AB 100", u"20", u"20        AB-119", u"AB-119"}},
      {"a table's number alone", u"7", {u"7", u"", u"", u"", u"", u"7", u""}},
      {"empty", u"", {}},
  };
  for (const auto& c : cases) {
    const CatalogTableEntry entry = parseIndexLine(c.line);
    EXPECT_EQ(toUtf8(entry.tableNumber), toUtf8(c.entry.tableNumber)) << c.what;
    EXPECT_EQ(toUtf8(entry.firstIndex), toUtf8(c.entry.firstIndex)) << c.what;
    EXPECT_EQ(toUtf8(entry.firstBrand), toUtf8(c.entry.firstBrand)) << c.what;
    EXPECT_EQ(toUtf8(entry.firstCatalog), toUtf8(c.entry.firstCatalog)) << c.what;
    EXPECT_EQ(toUtf8(entry.lastIndex), toUtf8(c.entry.lastIndex)) << c.what;
    EXPECT_EQ(toUtf8(entry.lastBrand), toUtf8(c.entry.lastBrand)) << c.what;
    EXPECT_EQ(toUtf8(entry.lastCatalog), toUtf8(c.entry.lastCatalog)) << c.what;
  }
}

}  // namespace
}  // namespace keyscout::test
