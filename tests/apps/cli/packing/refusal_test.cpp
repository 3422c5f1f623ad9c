// What a download is refused for: where, why, and that nothing is changed by it.

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "apps/cli/packing/pack_fixture.h"

namespace keyscout::test {
namespace {

using Refusals = PackTest;

struct Refusal {
  const char* name;
  std::string download;
  std::string message;  // behind the download's name
};

std::vector<Refusal> refusals() {
  const std::string good = record(1, "GOOD") + "\r\n";
  const auto wrongHeader = [](const std::string& what) {
    return ":1: The first line must be exactly FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)], but " +
           what;
  };
  const auto wrongIndex = [](const std::string& index) {
    return ":2: The index \"" + index + "\" in columns 1 to 10";
  };
  const auto indexed = [](const std::string& index) {
    return header + padded(index, 10) + padded("X", 60) + "\n";
  };
  return {
      {"empty", "", wrongHeader("it is blank")},
      {"other format", "0" + header + good, wrongHeader("it is \"0FORMAT=[")},
      {"blank behind header", header.substr(0, header.size() - 2) + " \r\n" + good,
       wrongHeader("blanks stand before or behind it")},
      {"header in small letters", "format" + header.substr(6) + good,
       wrongHeader("it stands there in other letters")},
      {"no header", "number,brand\x1B[2J\r\n" + good,
       wrongHeader("it is \"number,brand\\x1B[2J\"")},
      {"byte order mark", "\xEF\xBB\xBF" + header + good, wrongHeader("a byte order mark stands")},
      {"UTF-16", "\xFF\xFE" + std::string("F\0O\0", 4), wrongHeader("the file is UTF-16")},
      {"CR alone", header.substr(0, header.size() - 1) + record(1, "GOOD") + "\r",
       wrongHeader("the lines of the file end with CR alone")},
      {"one column", header + "X\r\n", ":2: The record has 1 column; fill it up"},
      {"UTF-8", header + good + record(2, "\xC3\x84") + "\r\n",
       ":3: The line is UTF-8, but a download is Windows-1252"},
      {"tab", header + record(2, "A\tB") + "\r\n",
       ":2: In this line character 12 is the control character 09 (hexadecimal), a tab; correct "
       "it."},
      {"NUL", header + record(2, std::string("A\0B", 3)) + "\r\n",
       ":2: In this line character 12 is the control character 00"},
      {"DEL in a brand", header + record(2, "A", "B\x7F") + "\r\n",
       ":2: In this line character 72 is the control character 7F"},
      {"undefined byte", header + record(2, "A\x8D\xE9") + "\r\n",
       ":2: In this line character 12 is the byte 8D (hexadecimal), which Windows-1252 has no"},
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
      {"case, behind several that differ from none",
       header + record(1, "a1") + "\n" + record(2, "a2") + "\n" + record(3, "a3") + "\n" +
           record(4, "Z") + "\n" + record(5, "z") + "\n",
       ":6: The catalog number \"z\" differs from \"Z\" on line 5 in letter case alone"},
      {"no records", header + "\r\n  \r\n", ":3: There are no records."},
  };
}

TEST_F(Refusals, NameTheLineAndLeaveTheOldCatalogInService) {
  pack(header + record(1, "OLD") + "\r\n");
  const Snapshot expected = snapshotOf(directory());
  constexpr std::size_t tinyMemory = 4096;
  for (const Refusal& refusal : refusals()) {
    for (const std::size_t memory : {PackOptions{}.memory, tinyMemory}) {
      SCOPED_TRACE(refusal.name);
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

std::vector<std::string> linesOfFailure(const PackError& failure) {
  std::vector<std::string> lines;
  std::istringstream text{failure.what()};
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  return lines;
}

TEST_F(Refusals, TellTwentyDuplicatesInOneRunAndHowManyMore) {
  // Line 2 to 101, the same again from 102 on, and one of them a third time in small letters.
  const PackError failure =
      failureOf(options(header + filler(100) + filler(100) + record(1, "n1050") + "\r\n"));
  const std::vector<std::string> lines = linesOfFailure(failure);
  ASSERT_EQ(lines.size(), 21U);
  const std::string download = (root_ / "list.txt").string();
  EXPECT_EQ(lines.front(),
            download +
                ":102: The catalog number \"N1000\" stands on line 2 already; remove one of "
                "the two.");
  EXPECT_EQ(lines[19],
            download +
                ":121: The catalog number \"N1019\" stands on line 21 already; remove one of "
                "the two.");
  EXPECT_EQ(lines.back(), "These are the first 20; 81 more numbers stand twice.");
  EXPECT_EQ(failure.exitStatus(), 1);
}

TEST_F(Refusals, OfUtf8CanBeOverruled) {
  PackOptions wanted = options(header + record(1, "\xC3\x84") + "\r\n");
  wanted.acceptsUtf8 = true;
  EXPECT_EQ(packCatalog(wanted).records, 1U);
  EXPECT_EQ(fileOf("0.txt"), record(1, "\xC3\x84") + "\r\n");
}

TEST_F(Refusals, GiveAFileThatIsNoTextUpEarly) {
  const PackError failure = failureOf(options(header + std::string(20 << 20, 'x')));
  EXPECT_NE(std::string{failure.what()}.find("list.txt:2: The download cannot be read on"),
            std::string::npos);
}

}  // namespace
}  // namespace keyscout::test
