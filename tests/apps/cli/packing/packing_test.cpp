#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <string>
#include <thread>
#include <vector>

#include "apps/cli/files/output_file.h"
#include "apps/cli/packing/pack_fixture.h"
#include "base/code_page.h"
#include "base/numbers.h"
#include "base/utf8.h"
#include "controller/keyscout_controller.h"
#include "platform/local/local_platform.h"
#include "platform/local/silent_message_box.h"
#include "platform/posix/posix_files.h"
#include "platform/thread_slot.h"

namespace keyscout::test {
namespace {

using Pack = PackTest;

constexpr std::size_t tinyMemory = 4096;

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
       "BRANDINDEX 1\r\nINDEX 4412229a9dc70cfb\r\nSIZES 226 76\r\n0 \r\n0 ACME 9\r\n0 ZETA\r\n1 "
       "Zeta\r\n"
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

TEST_F(Pack, AcceptsWhatIsJustWithinTheLimits) {
  const auto summary =
      pack(header + padded("2147483647", 10) + std::string(60, 'N') + std::string(50, 'B') +
           "        \r\n" + padded("-2147483648", 11).substr(0, 10) + padded("A", 60) + "\n" +
           padded("+5", 10) + padded("B\xA0-C", 60) + "\n" + record(9, "\xB5\x83") + "\n");
  EXPECT_EQ(summary.records, 4U);
  EXPECT_EQ(fileOf("0.txt"), padded("-214748364", 10) + padded("A", 60) + "\r\n" +
                                 padded("+5", 10) + padded("B\xA0-C", 60) + "\r\n" + "2147483647" +
                                 std::string(60, 'N') + std::string(50, 'B') + "\r\n" +
                                 record(9, "\xB5\x83") + "\r\n");
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
      {named("Keyscout-pack.lock", "catindex.txt"), "has the name of another file"},
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
  EXPECT_EQ(fileOf("catcontrol.txt"), "READY\r\n") << "of the catalog before";
}

/// Numbers in a scattered order, most of them with letters of both cases.
std::string scatteredDownload(std::uint32_t count) {
  std::string bytes = header;
  for (std::uint32_t i = 1; i <= count; ++i) {
    const std::uint32_t scattered = i * 2654435761U;
    std::string number = numbered("Ab\xE9-", scattered);
    if (i % 3 == 0) number[0] = static_cast<char>(0x82 + i % 5);
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

TEST_F(Pack, NoticesAFullDisk) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "no full device here";
  OutputFile small{"/dev/full"};
  small.write("held back until the end");
  EXPECT_THROW(small.close(), std::runtime_error);
  OutputFile large{"/dev/full"};
  EXPECT_THROW(large.write(std::string(1 << 20, 'x')), std::runtime_error);
}

TEST_F(Pack, ReadsAPipe) {
  const std::string bytes = header + filler(3000);
  PackOptions wanted = options(bytes);
  wanted.download = root_ / "pipe";
  ASSERT_EQ(::mkfifo(wanted.download.c_str(), 0600), 0);
  std::thread writer{[&] { writeFile(wanted.download, bytes); }};
  const PackSummary summary = packCatalog(wanted);
  writer.join();
  EXPECT_EQ(summary.records, 3000U);
  EXPECT_EQ(summary.downloadName, "download.txt");
  EXPECT_EQ(fileOf("download.txt"), bytes);
}

TEST_F(Pack, WritesNothingInADryRun) {
  PackOptions wanted = options(header + filler(401));
  wanted.dryRun = true;
  const Snapshot before = snapshotOf(root_);
  EXPECT_EQ(packCatalog(wanted).tables, 3U);
  EXPECT_EQ(snapshotOf(root_), before);
  writeFile(wanted.download, header + record(1, ""));
  EXPECT_EQ(failureOf(wanted).exitStatus(), 1);
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
}  // namespace keyscout::test
