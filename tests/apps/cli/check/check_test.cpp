#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <nlohmann/json.hpp>
#include <sstream>

#include "apps/cli/check/check_output.h"
#include "apps/cli/packing/brand_index_writer.h"
#include "platform/local/native_files.h"
#include "support/small_catalog.h"

namespace keyscout::test {
namespace {

constexpr std::size_t numberColumn = 11;
constexpr std::size_t brandColumn = 71;
constexpr std::size_t firstNumberColumn = 21;
constexpr std::size_t lastNumberColumn = 141;

struct Checked {
  std::vector<std::string> places;  // file:line: severity
  std::vector<std::string> sentences;
  CheckSummary summary;
};

Checked check(const SmallCatalog& catalog) {
  NativeFiles files;
  keyscout::DataDirectory names;
  names.path = catalog.path();
  Checked checked;
  checked.summary = checkCatalog(files, names, [&](const Finding& finding) {
    checked.places.push_back(finding.file + ':' + std::to_string(finding.line) +
                             (finding.severity == Severity::error ? ": error" : ": warning"));
    checked.sentences.push_back(finding.sentence);
  });
  return checked;
}

/// Adds a brand index that tells of ACME in every table and of BOLT in these.
void addBrandIndex(const SmallCatalog& catalog, const std::vector<std::size_t>& tablesOfBolt) {
  BrandIndexWriter writer;
  for (const std::size_t table : {0U, 1U, 2U}) writer.add("ACME", table);
  for (const std::size_t table : tablesOfBolt) writer.add("BOLT", table);
  writer.write(catalog.path(), "catindex.txt", 3);
}

struct Damage {
  const char* name;
  std::function<void(const SmallCatalog&)> inflict;
  std::vector<std::string> places;
  /// Part of the first finding's sentence.
  const char* sentence;
};

class CheckDamage : public testing::TestWithParam<Damage> {};

TEST_P(CheckDamage, IsFoundByItsLine) {
  const SmallCatalog catalog;
  GetParam().inflict(catalog);
  const Checked checked = check(catalog);
  EXPECT_EQ(checked.places, GetParam().places);
  ASSERT_FALSE(checked.sentences.empty());
  EXPECT_NE(checked.sentences[0].find(GetParam().sentence), std::string::npos)
      << checked.sentences[0];
}

using Places = std::vector<std::string>;

/// Puts one text into a file.
auto put(const std::string& file, std::size_t line, std::size_t column, const std::string& text) {
  return [=](const SmallCatalog& catalog) { catalog.overwrite(file, line, column, text); };
}
auto fill(const std::string& file, const SmallCatalog::Lines& lines) {
  return [=](const SmallCatalog& catalog) { catalog.writeLines(file, lines); };
}
auto lose(const std::string& file) {
  return [=](const SmallCatalog& catalog) { catalog.remove(file); };
}
/// Puts one line behind the last line of a file.
auto append(const std::string& file, const std::string& line) {
  return [=](const SmallCatalog& catalog) { catalog.append(file, line); };
}

const Damage damages[] = {
    {"ControlInProcess",
     fill("catcontrol.txt", {"INPROCESS"}),
     {"catcontrol.txt:1: error"},
     "as soon as the catalog number download has been completed"},
    {"ControlUnknown",
     fill("catcontrol.txt", {"ready"}),
     {"catcontrol.txt:1: error"},
     "invalid data"},
    {"ControlMissing", lose("catcontrol.txt"), {"catcontrol.txt:1: error"}, "File not found"},
    {"DownloadOfAnotherFormat",
     fill("download.txt", {"FORMAT=[CATALOG(60)]"}),
     {"download.txt:1: error"},
     "not consistant with the current version of Tessaly. The first line must be exactly "
     "FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)], but it is \"FORMAT=[CATALOG(60)]\"."},
    {"DownloadBehindAByteOrderMark",
     fill("download.txt", {"\xEF\xBB\xBF"
                           "FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]"}),
     {"download.txt:1: error"},
     "a byte order mark stands before it"},
    {"DownloadBesideANewerOne",
     [](const SmallCatalog& catalog) {
       catalog.writeLines("old.txt", catalog.read("download.txt"));
       const auto now = std::filesystem::file_time_type::clock::now();
       std::filesystem::last_write_time(catalog.path() / "old.txt", now - std::chrono::hours{1});
     },
     {"old.txt:1: warning"},
     "older than download.txt, which is the one that counts"},
    {"ControlOfAKilledPack",
     [](const SmallCatalog& catalog) {
       catalog.writeLines("catcontrol.txt", {"INPROCESS"});
       std::filesystem::create_directories(catalog.path() / "keyscout-pack.tmp" / "complete");
     },
     {"catcontrol.txt:1: error"},
     "ended half-way; pack again."},

    {"IndexMissing", lose("catindex.txt"), {"catindex.txt:1: error"}, "File not found"},
    {"IndexEmpty", fill("catindex.txt", {"", "  "}), {"catindex.txt:1: error"}, "no table"},
    {"IndexLineTooLong",
     put("catindex.txt", 2, 251, "X"),
     {"catindex.txt:2: warning", "catindex.txt:2: warning"},
     "251 characters instead of 250"},
    {"TableNumberNotItsPosition",
     [](const SmallCatalog& catalog) {
       catalog.overwrite("catindex.txt", 2, 1, "7");
       catalog.writeLines("7.txt", catalog.read("1.txt"));
     },
     {"catindex.txt:2: error"},
     "\"7\" stands at position 1"},
    {"IndexOverlap",
     put("catindex.txt", 2, firstNumberColumn, "AB-03"),
     {"catindex.txt:2: error", "catindex.txt:2: error"},
     "overlaps"},
    {"IndexOutOfOrder",
     put("catindex.txt", 3, firstNumberColumn, "AA-00"),
     {"catindex.txt:3: error", "catindex.txt:3: error"},
     "out of order"},
    {"IndexEndsBelowItsBeginning",
     put("catindex.txt", 3, lastNumberColumn, "AB-19"),
     {"catindex.txt:3: error", "catindex.txt:3: error"},
     "below its first number"},
    {"IndexWithoutNumber",
     put("catindex.txt", 1, lastNumberColumn, "     "),
     {"catindex.txt:1: error", "catindex.txt:1: error"},
     "no last catalog number"},
    {"LastNumberNotTheTables",
     put("catindex.txt", 3, lastNumberColumn, "AB-24"),
     {"catindex.txt:3: error"},
     "but 2.txt:4 has \"AB-23\""},
    {"FirstBrandNotTheTables",
     put("catindex.txt", 1, 81, "BOLT"),
     {"catindex.txt:1: warning"},
     "first brand"},
    {"MoreThan1001Tables",
     [](const SmallCatalog& catalog) {
       SmallCatalog::Lines lines;
       for (int table = 0; table < 1002; ++table) {
         const std::string name = std::to_string(table);
         const Entry entry{std::to_string(10000 + table), "ACME"};
         catalog.writeLines(name + ".txt", {tableLine(entry)});
         lines.push_back(indexLine(name, entry, entry));
       }
       catalog.writeLines("catindex.txt", lines);
     },
     {"catindex.txt:1002: error"},
     "table 1002"},

    {"BrandsMissing", lose("brandinfo.txt"), {"brandinfo.txt:1: error"}, "File not found"},
    {"BrandTwice", append("brandinfo.txt", "acme"), {"brandinfo.txt:3: warning"}, "on line 1"},
    {"TextInTheKeysColumns",
     [](const SmallCatalog& catalog) {
       catalog.append("brandinfo.txt", "CRANE     Crane Works");
       catalog.overwrite("1.txt", 2, brandColumn, "CRANE");
       catalog.overwrite("2.txt", 2, brandColumn, "CRANE");
     },
     {"brandinfo.txt:3: error"},
     "\"CRANE     Crane Works\""},
    {"NoBrandInTheKeysColumns",
     append("brandinfo.txt", std::string(50, ' ') + "CRANE"),
     {"brandinfo.txt:3: error"},
     "no brand"},

    {"TableMissing", lose("1.txt"), {"catindex.txt:2: error"}, "1.txt cannot be read"},
    {"TableEmpty", fill("1.txt", {}), {"1.txt:1: error"}, "empty"},
    {"ShortLine", append("2.txt", std::string(69, 'X')), {"2.txt:5: error"}, "69 characters"},
    {"LineOfOneCharacter", append("2.txt", "X"), {"2.txt:5: error"}, "has 1 character;"},
    {"IndexLineWithoutEnd",
     append("catindex.txt", std::string(std::size_t{16} * 1024 * 1024, 'X')),
     {"catindex.txt:4: error"},
     "a line of it is longer than any text has them"},
    {"LineWithoutEnd",
     append("2.txt", std::string(std::size_t{16} * 1024 * 1024, 'X')),
     {"2.txt:5: error"},
     "a line of it is longer than any text has them"},
    {"ControlCharacter",
     put("1.txt", 2, brandColumn, "B\x1B[T"),
     {"1.txt:2: warning", "1.txt:2: warning"},
     "brand \"B\\x1B[T\" is not in brandinfo.txt"},
    {"UndefinedByte",
     put("1.txt", 2, brandColumn, "BOL\x81"),
     {"1.txt:2: warning", "1.txt:2: warning"},
     "\"BOL\\x81\""},
    {"Utf8",
     put("1.txt", 2, brandColumn, "B\xC3\x96T"),
     {"1.txt:2: warning", "1.txt:2: warning"},
     "is not in brandinfo.txt"},
    {"BrandOfAnyLength",
     put("1.txt", 2, brandColumn, std::string(1 << 20, 'X')),
     {"1.txt:2: warning"},
     "X...\" has 1048576 characters; none of brandinfo.txt has more than 50"},
    {"BlankLine", append("2.txt", ""), {"2.txt:5: error"}, "0 characters"},
    {"IndexFieldWithLetters", put("1.txt", 2, 1, "6x"), {"1.txt:2: error"}, "\"6x\""},
    {"IndexFieldTooLarge", put("1.txt", 2, 1, "2147483648"), {"1.txt:2: error"}, "32 bits"},
    {"NoNumber",
     put("1.txt", 2, numberColumn, "     "),
     {"1.txt:2: error", "1.txt:2: error"},
     "no catalog number"},
    {"NumberOutOfOrder",
     put("1.txt", 3, numberColumn, "AB-105"),
     {"1.txt:3: error"},
     "stands below \"AB-11\" (1.txt:2)"},
    {"NumberTwice",
     put("1.txt", 3, numberColumn, "AB-11"),
     {"1.txt:3: warning"},
     "repeats \"AB-11\" (1.txt:2)"},
    {"NumberTwiceAcrossTables",
     [](const SmallCatalog& catalog) {
       catalog.overwrite("1.txt", 1, numberColumn, "AB-03");
       catalog.overwrite("catindex.txt", 2, firstNumberColumn, "AB-03");
     },
     {"catindex.txt:2: error", "1.txt:1: warning"},
     "overlaps"},
    {"SmallLetters",
     append("2.txt", tableLine({"AB-x", "ACME", "13"})),
     {"2.txt:5: warning", "catindex.txt:3: error", "catindex.txt:3: warning",
      "catindex.txt:3: warning"},
     "small letters"},
    {"LetterCaseOnlyAcrossTables",
     [](const SmallCatalog& catalog) {
       catalog.overwrite("0.txt", 1, numberColumn, "AB-0X");
       catalog.overwrite("0.txt", 2, numberColumn, "AB-0Y");
       catalog.overwrite("0.txt", 3, numberColumn, "AB-0Z");
       catalog.overwrite("0.txt", 4, numberColumn, "AB-0[");
       catalog.overwrite("catindex.txt", 1, firstNumberColumn, "AB-0X");
       catalog.overwrite("catindex.txt", 1, lastNumberColumn, "AB-0[");
       catalog.overwrite("2.txt", 4, numberColumn, "aB-0y");
       catalog.overwrite("catindex.txt", 3, lastNumberColumn, "aB-0y");
     },
     {"2.txt:4: warning", "2.txt:4: warning"},
     "small letters"},
    {"BrandUnknown",
     put("1.txt", 2, brandColumn, "NONE"),
     {"1.txt:2: warning"},
     "\"NONE\" is not in brandinfo.txt"},
    {"BrandSpelledOtherwise",
     put("1.txt", 3, brandColumn, "Acme"),
     {"1.txt:3: warning"},
     "is spelled \"ACME\""},

    {"BrandIndexWithoutATable",
     [](const SmallCatalog& catalog) {
       addBrandIndex(catalog, {0, 2});
     },
     {"brandindex.txt:1: error"},
     "brand \"BOLT\" stands in table 1"},
    {"BrandIndexOfAnotherIndex",
     [](const SmallCatalog& catalog) {
       addBrandIndex(catalog, {0, 1, 2});
       catalog.append("catindex.txt", "");
     },
     {"brandindex.txt:2: warning"},
     "not made for this catindex.txt"},
    {"BrandIndexCut",
     [](const SmallCatalog& catalog) {
       addBrandIndex(catalog, {0, 1, 2});
       SmallCatalog::Lines lines = catalog.read("brandindex.txt");
       lines.pop_back();
       catalog.writeLines("brandindex.txt", lines);
     },
     {"brandindex.txt:6: warning"},
     "damaged"},
    {"BrandIndexOfSomethingElse",
     fill("brandindex.txt", {"ACME", "BOLT"}),
     {"brandindex.txt:1: warning"},
     "no brand index"},
    {"TableChangedAfterTheBrandIndex",
     [](const SmallCatalog& catalog) {
       addBrandIndex(catalog, {0, 2});
       catalog.writeLines("1.txt", catalog.read("1.txt"));
     },
     {"1.txt:1: warning"},
     "was changed after brandindex.txt"},
};

INSTANTIATE_TEST_SUITE_P(All, CheckDamage, testing::ValuesIn(damages),
                         [](const auto& test) { return test.param.name; });

TEST(Check, OfADownloadWithoutLineEndsEndsWithAFinding) {
  const SmallCatalog catalog;
  catalog.writeLines("download.txt", {std::string(std::size_t{16} * 1024 * 1024, 'X')});
  NativeFiles files;
  keyscout::DataDirectory names;
  names.path = catalog.path();
  names.downloadFile = "download.txt";
  std::vector<std::string> findings;
  checkCatalog(files, names, [&](const Finding& finding) {
    findings.push_back(finding.file + ": " + finding.sentence);
  });
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_NE(findings[0].find("a line of it is longer than any text has them"), std::string::npos)
      << findings[0];
}

TEST(Check, FindsNothingInASoundCatalog) {
  const SmallCatalog catalog;
  addBrandIndex(catalog, {0, 1, 2});
  const Checked checked = check(catalog);
  EXPECT_EQ(checked.places, Places{});
  EXPECT_EQ(checked.summary.tables, 3U);
  EXPECT_EQ(checked.summary.lines, 12U);
}

TEST(Check, FindsNothingInBrandsOfSeveralWords) {
  const SmallCatalog catalog;
  catalog.writeLines("brandinfo.txt",
                     {"ACME", "BOLT", "Black and Decker", "A  B", "CRANE     Crane Works"});
  catalog.overwrite("1.txt", 2, brandColumn, "Black and Decker");
  catalog.overwrite("1.txt", 3, brandColumn, "A  B");
  EXPECT_EQ(check(catalog).places, Places{});
}

TEST(Check, NamesADownloadThatMayNotBeRead) {
  const SmallCatalog catalog;
  std::filesystem::permissions(catalog.path() / "download.txt", std::filesystem::perms::none);
  if (std::ifstream{catalog.path() / "download.txt"}) GTEST_SKIP() << "everything may be read here";
  const Checked checked = check(catalog);
  EXPECT_EQ(checked.places, Places{"download.txt:1: error"});
  EXPECT_EQ(checked.sentences.at(0), "cannot be read: Permission denied");
}

TEST(Check, NamesBothPlacesOfNumbersThatDifferInLetterCase) {
  const SmallCatalog catalog;
  for (const Damage& damage : damages)
    if (std::string_view{damage.name} == "LetterCaseOnlyAcrossTables") damage.inflict(catalog);
  const Checked checked = check(catalog);
  ASSERT_EQ(checked.sentences.size(), 2U);
  EXPECT_NE(checked.sentences[1].find("\"aB-0y\" differs in letter case only from \"AB-0Y\" "
                                      "(0.txt:2)"),
            std::string::npos)
      << checked.sentences[1];
}

TEST(Check, CannotBeginWithoutADirectory) {
  NativeFiles files;
  keyscout::DataDirectory names;
  names.path = "/nowhere/at/all";
  EXPECT_THROW(checkCatalog(files, names, [](const Finding&) {}), std::runtime_error);
}

TEST(Check, NamesTheDirectoryThatHoldsNoDownload) {
  const SmallCatalog catalog;
  catalog.remove("download.txt");
  EXPECT_EQ(check(catalog).places, Places{catalog.path().string() + ":1: error"});
}

TEST(CheckOutput, IsTextForPeopleAndJsonForPrograms) {
  const Finding finding{"1.txt", 7, Severity::warning, "is \"odd\""};
  std::ostringstream text;
  CheckText asText{text};
  asText.add(finding);
  asText.finish({.tables = 1, .lines = 20});
  EXPECT_EQ(text.str(),
            "1.txt:7: warning: is \"odd\"\n0 errors, 1 warning in 20 lines of 1 table\n");

  std::ostringstream styled;
  CheckText asStyledText{styled, TextStyle{true}};
  asStyledText.add(finding);
  EXPECT_EQ(styled.str(), "\x1B[1m1.txt:7:\x1B[0m \x1B[1;33mwarning:\x1B[0m is \"odd\"\n");

  for (int count = 0; count < 3; ++count) {
    std::ostringstream json;
    CheckJson asJson{json};
    for (int i = 0; i < count; ++i) asJson.add(finding);
    asJson.finish({.tables = 1, .lines = 20});
    const auto parsed = nlohmann::json::parse(json.str());
    ASSERT_EQ(parsed["findings"].size(), static_cast<std::size_t>(count));
    EXPECT_EQ(parsed["summary"]["warnings"], count);
    for (const auto& entry : parsed["findings"]) EXPECT_EQ(entry["sentence"], "is \"odd\"");
  }
}

}  // namespace
}  // namespace keyscout::test
