#include "apps/cli/packing/pack_catalog.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "apps/cli/files/output_file.h"
#include "base/code_page.h"
#include "base/numbers.h"
#include "base/utf8.h"
#include "controller/keyscout_controller.h"
#include "platform/local/local_platform.h"
#include "platform/local/silent_message_box.h"
#include "platform/posix/posix_files.h"
#include "platform/thread_slot.h"
#include "support/temporary_folder.h"

namespace keyscout {
namespace {

namespace fs = std::filesystem;

const std::string header = "FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]\r\n";
constexpr std::size_t tinyMemory = 4096;

std::string padded(std::string text, std::size_t width) {
  text.resize(std::max(width, text.size()), ' ');
  return text;
}

/// A record without its line end.
std::string record(int index, const std::string& number, const std::string& brand = "BRAND") {
  return padded(std::to_string(index), 10) + padded(number, 60) + brand;
}

std::string numbered(const std::string& start, std::uint32_t number) {
  return start + std::to_string(number);
}

std::string readFile(const fs::path& path) {
  std::ifstream file{path, std::ios::binary};
  return {std::istreambuf_iterator<char>{file}, {}};
}

void writeFile(const fs::path& path, const std::string& bytes) {
  std::ofstream{path, std::ios::binary} << bytes;
}

using Snapshot = std::map<std::string, std::string>;

/// All files of a directory by name; a folder counts as a file without bytes.
Snapshot snapshotOf(const fs::path& directory) {
  Snapshot files;
  for (const auto& entry : fs::directory_iterator(directory))
    files[entry.path().filename().string()] = entry.is_directory() ? "" : readFile(entry.path());
  return files;
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t from = 0;
  for (std::size_t end; (end = text.find("\r\n", from)) != text.npos; from = end + 2)
    lines.push_back(text.substr(from, end - from));
  EXPECT_EQ(from, text.size()) << "the last line has no end";
  return lines;
}

class Pack : public testing::Test {
 protected:
  PackOptions options(const std::string& bytes) const {
    PackOptions result;
    result.download = root_ / "list.txt";
    result.directory = directory();
    writeFile(result.download, bytes);
    return result;
  }
  PackSummary pack(const std::string& bytes) const { return packCatalog(options(bytes)); }

  fs::path directory() const { return root_ / "data"; }
  std::string fileOf(const std::string& name) const { return readFile(directory() / name); }

  test::TemporaryFolder folder_;
  const fs::path& root_ = folder_.path();
};

/// The error that packing fails with; without one the test fails.
PackError failureOf(const PackOptions& options, const PackProgress& progress = {}) {
  try {
    packCatalog(options, progress);
  } catch (const PackError& failure) {
    return failure;
  }
  ADD_FAILURE() << "packed";
  return {"", ExitStatus::success};
}

TEST_F(Pack, WritesEveryFileByteForByte) {
  PackOptions wanted =
      options(header + record(12, "EXA-2", "Zeta") + "\r\n" + "   \n" + padded("      -7", 10) +
              padded("  AXE ", 60) + "\n" + record(3, "B", padded(" ACME 9 ", 60)) + "\r\n\r\n" +
              record(4, "C", "ZETA"));
  wanted.linesPerTable = 3;
  const PackSummary summary = packCatalog(wanted);

  EXPECT_EQ(summary.records, 4U);
  EXPECT_EQ(summary.tables, 2U);
  EXPECT_EQ(summary.linesPerTable, 3U);
  EXPECT_EQ(summary.brands, 2U);
  EXPECT_EQ(summary.indexName, "catindex.txt");
  EXPECT_EQ(summary.downloadName, "list.txt");
  const std::string blankBrand(50, ' ');
  const Snapshot expected{
      {"0.txt", padded("      -7", 10) + padded("AXE", 60) + "\r\n" + record(3, "B", "ACME 9") +
                    "\r\n" + record(4, "C", "ZETA") + "\r\n"},
      {"1.txt", record(12, "EXA-2", "Zeta") + "\r\n"},
      {"catindex.txt", padded("0", 10) + padded("      -7", 10) + padded("AXE", 60) + blankBrand +
                           record(4, "C", padded("ZETA", 50)) + "\r\n" + padded("1", 10) +
                           record(12, "EXA-2", padded("Zeta", 50)) +
                           record(12, "EXA-2", padded("Zeta", 50)) + "\r\n"},
      {"brandinfo.txt", "Zeta\r\nACME 9\r\n"},
      {"brandindex.txt",
       "BRANDINDEX 1\r\nINDEX 4412229a9dc70cfb\r\nSIZES 226 76\r\n0 \r\n0 ACME 9\r\n0 ZETA\r\n1 Zeta\r\n"
       "END f211a47df284f9d9\r\n"},
      {"catcontrol.txt", "READY\r\n"},
      {"list.txt", readFile(wanted.download)}};
  EXPECT_EQ(snapshotOf(directory()), expected);
}

TEST_F(Pack, OrdersByUtf16CodeUnits) {
  // 0x8C is U+0152 and 0x80 is U+20AC, both above 0xE9, and 0x99 is U+2122, above them all.
  pack(header + record(1, "\x80") + "\n" + record(2, "\xE9") + "\n" + record(3, "a") + "\n" +
       record(4, "Z") + "\n" + record(5, "\x99") + "\n" + record(6, "\x8C") + "\n" +
       record(7, "Z-") + "\n" + record(8, "\xFF") + "\n");
  std::vector<std::string> numbers;
  for (const std::string& line : linesOf(fileOf("0.txt")))
    numbers.push_back(line.substr(10, line.find(' ', 10) - 10));
  EXPECT_EQ(numbers,
            (std::vector<std::string>{"Z", "Z-", "a", "\xE9", "\xFF", "\x8C", "\x80", "\x99"}));
}

struct Refusal {
  const char* name;
  std::string download;
  std::string message;  // behind the download's name
};

std::string filler(int count) {
  std::string records;
  for (int i = 0; i < count; ++i)
    records += record(i, numbered("N", static_cast<std::uint32_t>(1000 + i))) + "\r\n";
  return records;
}

std::vector<Refusal> refusals() {
  const std::string good = record(1, "GOOD") + "\r\n";
  const std::string wrongHeader =
      ":1: The first line must be exactly FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]";
  const auto wrongIndex = [](const std::string& index) {
    return ":2: The index \"" + index + "\" in columns 1 to 10";
  };
  const auto indexed = [](const std::string& index) {
    return header + padded(index, 10) + padded("X", 60) + "\n";
  };
  return {
      {"empty", "", wrongHeader},
      {"other format", "0" + header + good, wrongHeader},
      {"blank behind header", header.substr(0, header.size() - 2) + " \r\n" + good, wrongHeader},
      {"header in small letters", "format" + header.substr(6) + good, wrongHeader},
      {"no header", good, wrongHeader},
      {"too short", header + good + record(2, "X", "").substr(0, 69) + "\r\n",
       ":3: The record has 69 columns"},
      {"too long, last line", header + good + good + "\n" + record(2, "X", std::string(51, 'B')),
       ":5: The record has 121 columns"},
      {"index of words", indexed("12A"), wrongIndex("12A")},
      {"index of blanks", indexed(""), wrongIndex("")},
      {"index of a sign", indexed("+"), wrongIndex("+")},
      {"index too large", indexed("2147483648"), wrongIndex("2147483648")},
      {"index with a blank", indexed("1 2"), wrongIndex("1 2")},
      {"blank number", header + good + record(2, "") + "\n", ":3: The catalog number in columns"},
      {"same number", header + good + record(2, "X") + "\n" + filler(400) + record(3, " X") + "\n",
       ":404: The catalog number \"X\" stands on line 3 already"},
      {"case", header + record(1, "AbC\xE9") + "\n" + filler(400) + record(2, "ABC\xC9") + "\n",
       ":403: The catalog number \"ABC\u00C9\" differs from \"AbC\u00E9\" on line 2 in letter "
       "case"},
      {"case, capitals first", header + record(1, "\x9F") + "\n" + record(2, "\xFF") + "\n",
       ":3: The catalog number \"\u00FF\" differs from \"\u0178\" on line 2 in letter case alone"},
      {"case, both small", header + record(1, "aB") + "\n" + filler(400) + record(2, "Ab") + "\n",
       ":403: The catalog number \"Ab\" differs from \"aB\" on line 2 in letter case alone"},
      {"case, the last ones", header + good + record(1, "zy") + "\n" + record(2, "zY") + "\n",
       ":4: The catalog number \"zY\" differs from \"zy\" on line 3 in letter case alone"},
      {"no records", header + "\r\n  \r\n", ":3: The download holds no records."},
  };
}

TEST_F(Pack, RefusesADownloadByItsLineAndLeavesTheOldTables) {
  pack(header + record(1, "OLD") + "\r\n");
  Snapshot expected = snapshotOf(directory());
  expected["catcontrol.txt"] = "CORRUPT\r\n";
  for (const Refusal& refusal : refusals()) {
    for (const std::size_t memory : {PackOptions{}.memory, tinyMemory}) {
      SCOPED_TRACE(refusal.name);
      writeFile(directory() / "catcontrol.txt", "READY\r\n");
      PackOptions wanted = options(refusal.download);
      wanted.memory = memory;
      const PackError failure = failureOf(wanted);
      const std::string message = wanted.download.string() + refusal.message;
      EXPECT_EQ(std::string{failure.what()}.substr(0, message.size()), message);
      EXPECT_EQ(failure.exitStatus(), ExitStatus::negative);
      EXPECT_EQ(snapshotOf(directory()), expected);
    }
  }
}

TEST_F(Pack, AcceptsWhatIsJustWithinTheLimits) {
  const auto summary =
      pack(header + padded("2147483647", 10) + std::string(60, 'N') + std::string(50, 'B') +
           "        \r\n" + padded("-2147483648", 11).substr(0, 10) + padded("A", 60) + "\n" +
           padded("+5", 10) + padded("B\tC", 60) + "\n" + record(9, "\xB5\x83") + "\n");
  EXPECT_EQ(summary.records, 4U);
  EXPECT_EQ(fileOf("catcontrol.txt"), "READY\r\n");
}

TEST_F(Pack, TouchesNothingWhereItCannotBegin) {
  const std::string good = header + record(1, "X") + "\n";
  const auto named = [&](const std::string& download, const std::string& index) {
    PackOptions wanted = options(good);
    fs::rename(wanted.download, root_ / download);
    wanted.download = root_ / download;
    wanted.indexName = index;
    return wanted;
  };
  PackOptions noLines = options(good);
  noLines.linesPerTable = 0;
  PackOptions missing = options(good);
  missing.download = root_ / "nowhere.txt";
  PackOptions folder = options(good);
  folder.download = root_ / "folder.lst";
  fs::create_directory(folder.download);
  const std::pair<PackOptions, std::string> cases[] = {
      {noLines, "at least 1 line"},
      {missing, "nowhere.txt: The download cannot be opened: "},
      {folder, "folder.lst: The download cannot be opened: "},
      {named("7.TXT", "catindex.txt"), "\"7.TXT\" has the name of a catalog table"},
      {named("1000.txt", "catindex.txt"), "\"1000.txt\" has the name of a catalog table"},
      {named("CatControl.txt", "catindex.txt"), "has the name of another file"},
      {named("brandinfo.txt", "catindex.txt"), "has the name of another file"},
      {named("keyscout-pack.tmp", "catindex.txt"), "has the name of another file"},
      {named("a\\b.txt", "catindex.txt"), "must be the plain name of a file"},
      {named("catindex.txt", "CATINDEX.TXT"), "are both named \"CATINDEX.TXT\""},
      {named("a.txt", "0.txt"), "\"0.txt\" has the name of a catalog table"},
      {named("b.txt", "brandinfo.txt"), "has the name of another file"},
      {named("c.txt", "sub/i.txt"), "must be the plain name of a file"},
      {named("d.txt", ""), "must be the plain name of a file"},
  };
  for (const auto& [wanted, message] : cases) {
    const PackError failure = failureOf(wanted);
    EXPECT_NE(std::string{failure.what()}.find(message), std::string::npos) << failure.what();
    EXPECT_EQ(failure.exitStatus(), ExitStatus::unusable) << message;
    EXPECT_FALSE(fs::exists(directory())) << message;
  }
  EXPECT_EQ(packCatalog(named("1001.txt", "01.txt")).records, 1U);
}

TEST_F(Pack, ChoosesAndLimitsTheLinesOfATable) {
  PackOptions wanted = options(header + filler(401));
  EXPECT_EQ(packCatalog(wanted).linesPerTable, 200U);
  EXPECT_EQ(linesOf(fileOf("catindex.txt")).size(), 3U);
  EXPECT_EQ(linesOf(fileOf("2.txt")).size(), 1U);

  wanted = options(header + filler(1001 * 201));
  const PackSummary full = packCatalog(wanted);
  EXPECT_EQ(full.linesPerTable, 201U);
  EXPECT_EQ(full.tables, 1001U);
  EXPECT_EQ(linesOf(fileOf("1000.txt")).size(), 201U);

  wanted.linesPerTable = 200;
  EXPECT_STREQ(failureOf(wanted).what(),
               "201201 records make more than 1001 tables of 200 lines; put 201 or more lines into "
               "a table.");
  EXPECT_EQ(fileOf("catcontrol.txt"), "CORRUPT\r\n");
}

/// Numbers in a scattered order, most of them with letters of both cases.
std::string scatteredDownload(std::uint32_t count) {
  std::string bytes = header;
  for (std::uint32_t i = 1; i <= count; ++i) {
    const std::uint32_t scattered = i * 2654435761U;
    std::string number = numbered("Ab\xE9-", scattered);
    if (i % 3 == 0) number[0] = static_cast<char>(0x80 + i % 7);
    if (i % 5 == 0) number = numbered("CAPITALS ", scattered);
    bytes += record(static_cast<int>(i), number, numbered("B", i % 41)) + "\r\n";
  }
  return bytes;
}

TEST_F(Pack, MakesTheSameOfAnyAmountOfMemory) {
  constexpr std::uint32_t records = 6000;  // some 150 runs in the tiny memory, more than at once
  PackOptions wanted = options(scatteredDownload(records));
  wanted.memory = tinyMemory;
  packCatalog(wanted);
  const Snapshot tiny = snapshotOf(directory());
  wanted.memory = PackOptions{}.memory;
  packCatalog(wanted);
  EXPECT_EQ(snapshotOf(directory()), tiny);

  std::vector<String> numbers;
  for (int table = 0; table < 30; ++table)
    for (const std::string& line : linesOf(fileOf(std::to_string(table) + ".txt")))
      numbers.push_back(windows1252().decode(line.substr(10, 60)));
  EXPECT_EQ(numbers.size(), records);
  EXPECT_TRUE(std::ranges::is_sorted(numbers));
}

TEST_F(Pack, RepacksOverItselfAndRemovesWhatIsLeftOver) {
  PackOptions wanted = options(header + filler(1000));
  packCatalog(wanted);
  ASSERT_TRUE(fs::exists(directory() / "4.txt"));
  const Snapshot first = snapshotOf(directory());

  wanted.download = directory() / "list.txt";
  fs::create_directories(directory() / "keyscout-pack.tmp" / "catalog");
  writeFile(directory() / "keyscout-pack.tmp" / "catalog" / "left.txt", "of a killed pack");
  packCatalog(wanted);
  EXPECT_EQ(snapshotOf(directory()), first);

  writeFile(directory() / "note.txt", "not ours");
  writeFile(wanted.download, header + filler(201));
  EXPECT_EQ(packCatalog(wanted).tables, 2U);
  Snapshot second = snapshotOf(directory());
  EXPECT_EQ(second.extract("note.txt").mapped(), "not ours");
  std::vector<std::string> names;
  for (const auto& file : second) names.push_back(file.first);
  EXPECT_EQ(names, (std::vector<std::string>{"0.txt", "1.txt", "brandindex.txt", "brandinfo.txt", "catcontrol.txt",
                                             "catindex.txt", "list.txt"}));
}

TEST_F(Pack, KeepsTheOldTablesInProcessUntilTheEnd) {
  packCatalog(options(header + record(1, "OLD") + "\r\n"));
  const PackOptions wanted = options(header + filler(3000));
  const Snapshot old = snapshotOf(directory());
  std::vector<std::string> steps;
  packCatalog(wanted, [&](std::string_view step, std::uint64_t done, std::uint64_t total) {
    steps.emplace_back(step);
    EXPECT_LE(done, total);
    Snapshot expected = old;
    expected["catcontrol.txt"] = "INPROCESS\r\n";
    expected["keyscout-pack.tmp"] = "";
    EXPECT_EQ(snapshotOf(directory()), expected);
  });
  EXPECT_EQ(steps, (std::vector<std::string>{"Reading", "Reading", "Writing", "Writing"}));
  EXPECT_EQ(fileOf("catcontrol.txt"), "READY\r\n");

  Snapshot expected = snapshotOf(directory());
  expected["catcontrol.txt"] = "CORRUPT\r\n";
  const auto interrupt = [](std::string_view step, std::uint64_t, std::uint64_t) {
    if (step == "Writing") throw std::runtime_error("interrupted");
  };
  EXPECT_STREQ(failureOf(wanted, interrupt).what(), "The catalog could not be packed: interrupted");
  EXPECT_EQ(snapshotOf(directory()), expected);
}

TEST_F(Pack, IsCorruptWhereAFileCannotTakeItsPlace) {
  for (const char* name : {"0.txt", "brandinfo.txt", "5.txt"}) {
    SCOPED_TRACE(name);
    fs::remove_all(directory());
    fs::create_directories(directory() / name / "in the way");
    EXPECT_EQ(failureOf(options(header + record(1, "X"))).exitStatus(), ExitStatus::unusable);
    EXPECT_EQ(fileOf("catcontrol.txt"), "CORRUPT\r\n");
    EXPECT_FALSE(fs::exists(directory() / "keyscout-pack.tmp"));
  }
}

TEST_F(Pack, NoticesAFullDisk) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "no full device here";
  OutputFile small{"/dev/full"};
  small.write("held back until the end");
  EXPECT_THROW(small.close(), std::runtime_error);
  OutputFile large{"/dev/full"};
  EXPECT_THROW(large.write(std::string(1 << 20, 'x')), std::runtime_error);

  fs::create_directories(directory());
  fs::create_symlink("/dev/full", directory() / "catcontrol.txt");
  const PackError failure = failureOf(options(header + record(1, "X")));
  EXPECT_EQ(failure.exitStatus(), ExitStatus::unusable);
  EXPECT_NE(std::string{failure.what()}.find("catcontrol.txt cannot be written: "),
            std::string::npos);
  EXPECT_EQ(std::distance(fs::directory_iterator(directory()), {}), 1);
}

TEST_F(Pack, GivesAFileThatIsNoTextUpEarly) {
  const PackError failure = failureOf(options(header + std::string(20 << 20, 'x')));
  EXPECT_NE(std::string{failure.what()}.find("list.txt:2: The download cannot be read on"),
            std::string::npos);
}

TEST_F(Pack, IsReadBackByTheController) {
  const FreshThreadState freshState;
  const PackSummary summary = pack(scatteredDownload(1500));

  PosixFiles files;
  SilentMessageBox messageBox;
  LocalPlatform platform{files, messageBox};
  RWKeyscoutController controller{platform};
  controller.setKeyscoutDirectory(fromUtf8(directory().string()));
  controller.setKeyscoutIndexFile(fromUtf8(summary.indexName.string()));
  controller.setCatalogNumbersDownloadFile(fromUtf8(summary.downloadName.string()));
  EXPECT_TRUE(controller.init());

  const keyscoutModule& module = keyscoutModule::ofThisThread();
  ASSERT_EQ(module.getTableCount(), 8);
  EXPECT_EQ(module.brandLookup->count(), 41U);
  for (std::int16_t i = 0; i < 8; ++i) {
    EXPECT_EQ(module.getTableNumber(i), decimal(i));
    EXPECT_LT(module.getFirstCatalog(i), module.getLastCatalog(i));
    if (i == 0) continue;
    const auto before = static_cast<std::int16_t>(i - 1);
    EXPECT_LT(module.getLastCatalog(before), module.getFirstCatalog(i));
  }
}

}  // namespace
}  // namespace keyscout
