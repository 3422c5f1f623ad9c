#include "lookup/table_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "base/error.h"
#include "base/utf8.h"
#include "support/data_directory.h"

namespace keyscout::test {
namespace {

/// Bytes in memory, read as a file is; counts the calls and lets one of them fail.
class BytesFile final : public RandomAccessFile {
 public:
  struct Reading {
    int calls = 0;
    std::size_t bytes = 0;
    int failAt = 0;
  };

  BytesFile(std::string_view bytes, std::optional<std::uint64_t> size, Reading& reading)
      : bytes_(bytes), size_(size), reading_(reading) {}

  std::optional<std::uint64_t> size() const override { return size_; }

  std::size_t readAt(std::uint64_t offset, char* to, std::size_t room) override {
    if (++reading_.calls == reading_.failAt)
      throw platformFailure(PlatformError::fileAccess, u"test");
    if (offset >= bytes_.size()) return 0;
    const std::size_t count = bytes_.copy(to, room, offset);
    reading_.bytes += count;
    return count;
  }

 private:
  std::string_view bytes_;
  std::optional<std::uint64_t> size_;
  Reading& reading_;
};

using Strings = std::vector<std::string>;

struct Table {
  Strings lines;
  std::string bytes;
};

/// `numbers` as lines of a table, some of them given as whole lines.
std::string numberLine(const std::string& number, std::mt19937& random) {
  std::string line = std::to_string(random() % 100'000);
  line.resize(10, ' ');
  line += random() % 20 == 0 ? "  " + number : number;
  line.resize(70, ' ');
  return line + (random() % 5 == 0 ? "" : "ACME" + std::string(random() % 60, '.'));
}

String numberOf(const std::string& line) {
  const String text = windows1252().decode(line);
  return String{trimmed(StringView{text}.substr(std::min<std::size_t>(10, text.size()), 60))};
}

/// Where reading line by line from the top ends: what a lookup has to find.
std::size_t lineByLine(const Strings& lines, const String& key) {
  std::size_t i = 0;
  while (i + 1 < lines.size() && key > numberOf(lines[i])) ++i;
  return i;
}

Strings found(std::string_view bytes, std::optional<std::uint64_t> size, const String& key,
              BytesFile::Reading& reading, const TableReader::Range& range = {}) {
  static SequentialFile::Buffer buffer;
  TableReader reader{std::make_unique<BytesFile>(bytes, size, reading), windows1252(), buffer};
  Strings lines;
  if (const auto first = reader.readFirstFor(key, range)) lines.emplace_back(*first);
  for (int i = 0; i < 30 && !lines.empty() && !reader.atEnd(); ++i)
    lines.emplace_back(reader.readLine());
  return lines;
}

enum class Disturbance { none, linesWithoutNumber, numberBelowItsPlace, numberAboveItsPlace };

class RandomTables : public testing::TestWithParam<Disturbance> {
 protected:
  /// Numbers that ascend in steps small and large, many of them equal, with and without bytes
  /// whose order is not that of their characters.
  Strings makeNumbers(std::size_t count) {
    static constexpr std::string_view characters = "-0123456789AZ\x80\x9F\xC9\xE9";
    const std::size_t usable = random() % 2 == 0 ? 13 : characters.size();
    Strings numbers(count);
    for (std::string& number : numbers) {
      for (int left = 2 + static_cast<int>(random() % 5); left > 0; --left)
        number += characters[random() % usable];
    }
    std::ranges::sort(numbers, {}, [](const auto& number) { return windows1252().decode(number); });
    return numbers;
  }

  Table makeTable() {
    // Small ones too, among them the empty one; the largest have 300 KB.
    const std::size_t count = random() % 3 == 0 ? random() % 150 : random() % 3000;
    Strings numbers = makeNumbers(count);
    stray = count;
    if (count > 0 && GetParam() >= Disturbance::numberBelowItsPlace) {
      // The middle of the table is where every search comes by.
      stray = random() % 3 == 0 ? count / 2 + random() % 20 : random() % count;
      stray = std::min(stray, count - 1);
      const std::size_t other = GetParam() == Disturbance::numberBelowItsPlace
                                    ? random() % (stray + 1)
                                    : stray + random() % (count - stray);
      numbers[stray] = numbers[other];
    }
    Table table;
    for (const std::string& number : numbers) {
      table.lines.push_back(numberLine(number, random));
      if (GetParam() != Disturbance::linesWithoutNumber) continue;
      for (const auto kind = random() % 12; kind < 3 && random() % 3 != 0;)
        table.lines.push_back(kind == 0 ? "" : std::string(kind == 1 ? 40 : 90, ' '));
      if (random() % 500 == 0) table.lines.push_back(std::string(random() % 20'000, ' '));
    }
    const bool ends = random() % 2 == 0;
    const auto withoutReturn = random() % 3;
    for (const std::string& line : table.lines)
      table.bytes += line + (random() % 3 < withoutReturn ? "\n" : "\r\n");
    if (ends && !table.lines.empty()) {
      table.bytes.erase(table.bytes.find_last_not_of("\r\n") + 1);
      if (table.lines.back().empty()) table.lines.clear();
    }
    return table;
  }

  String makeKey(const Strings& lines) {
    String key = lines.empty() ? u"A" : numberOf(lines[random() % lines.size()]);
    switch (random() % 6) {
      case 0: key += u'0'; break;
      case 1: key = key.substr(0, key.size() / 2); break;
      case 2: key = random() % 2 == 0 ? u"~" : u"!"; break;
      case 3:
        if (!key.empty()) ++key.back();
        break;
      default: break;
    }
    return key;
  }

  std::mt19937 random{static_cast<unsigned>(GetParam()) + 1};
  std::size_t stray = 0;
};

TEST_P(RandomTables, LeadWhereReadingLineByLineLeads) {
  int longTables = 0;
  int answersWithoutTheStray = 0;
  for (int round = 0; round < 120; ++round) {
    const Table table = makeTable();
    // Split again: what stands at the file's end decides how many lines it has.
    Strings lines;
    for (std::size_t at = 0; at < table.bytes.size();) {
      const auto end = std::min(table.bytes.find('\n', at), table.bytes.size());
      lines.push_back(table.bytes.substr(at, end - at));
      if (end != table.bytes.size() && lines.back().ends_with('\r')) lines.back().pop_back();
      at = end + 1;
    }
    longTables += table.bytes.size() > 50'000;
    for (int i = 0; i < 20; ++i) {
      const String key = makeKey(lines);
      const std::uint64_t size = table.bytes.size();
      // Of a file that shrinks or grows, another size was told when it was opened.
      const std::optional<std::uint64_t> told = i == 0   ? std::nullopt
                                                : i == 1 ? std::optional{size + random() % 50'000}
                                                : i == 2 ? std::optional{size - size / 4}
                                                         : std::optional{size};
      // What is said of the table's range, truly or not, changes no answer.
      const String saidFirst = makeKey(lines);
      const String saidLast = makeKey(lines);
      BytesFile::Reading reading;
      const Strings answer = found(table.bytes, told, key, reading, {saidFirst, saidLast});
      const auto expectedFrom = [&](std::size_t first) {
        first = std::min(first, lines.size());
        const auto from = lines.begin() + static_cast<std::ptrdiff_t>(first);
        return Strings(from, from + std::min<std::ptrdiff_t>(31, lines.end() - from));
      };
      const std::size_t expected = lines.empty() ? 0 : lineByLine(lines, key);
      if (answer != expectedFrom(expected) && GetParam() == Disturbance::numberAboveItsPlace &&
          expected == stray) {
        Strings others = lines;
        others.erase(others.begin() + static_cast<std::ptrdiff_t>(stray));
        ASSERT_EQ(answer, expectedFrom(lineByLine(others, key) + 1));
        ++answersWithoutTheStray;
        continue;
      }
      ASSERT_EQ(answer, expectedFrom(expected))
          << "round " << round << ", key " << toUtf8(key) << ", line " << expected << " of "
          << lines.size() << ", stray " << stray;
    }
  }
  EXPECT_GT(longTables, 40);
  EXPECT_EQ(answersWithoutTheStray > 0, GetParam() == Disturbance::numberAboveItsPlace);
}

std::string nameOf(const testing::TestParamInfo<Disturbance>& parameter) {
  switch (parameter.param) {
    case Disturbance::none: return "InOrder";
    case Disturbance::linesWithoutNumber: return "LinesWithoutNumber";
    case Disturbance::numberBelowItsPlace: return "NumberBelowItsPlace";
    default: return "NumberAboveItsPlace";
  }
}

INSTANTIATE_TEST_SUITE_P(TableReader, RandomTables,
                         testing::Values(Disturbance::none, Disturbance::linesWithoutNumber,
                                         Disturbance::numberBelowItsPlace,
                                         Disturbance::numberAboveItsPlace),
                         nameOf);

/// 10'000 lines A00000 to A09999 of 80 bytes.
std::string largeTable() {
  std::string bytes;
  for (int i = 0; i < 10'000; ++i)
    bytes += tableLine({"A" + std::to_string(100'000 + i).substr(1), "ACMETOOL"}) + "\r\n";
  return bytes;
}

TEST(TableReader, OneNumberBelowItsPlaceMisleadsNowhere) {
  // Of different widths, so that pieces begin at every byte of a line.
  Strings lines;
  for (std::size_t i = 0; i < 600; ++i)
    lines.push_back(tableLine({"B" + std::to_string(1000 + i), std::string(i % 11, 'A')}));
  for (std::size_t stray = 0; stray < lines.size(); ++stray) {
    Strings damaged = lines;
    damaged[stray] = tableLine({"A", "ACME"});
    std::string bytes;
    for (const std::string& line : damaged) bytes += line + "\r\n";
    for (const std::size_t wanted : {std::size_t{1}, stray / 2, stray - 1, stray, stray + 1,
                                     stray + 12, (stray + lines.size()) / 2, lines.size() - 1}) {
      if (wanted >= lines.size()) continue;
      const String key = numberOf(lines[wanted]);
      BytesFile::Reading reading;
      ASSERT_EQ(found(bytes, bytes.size(), key, reading).front(), damaged[lineByLine(damaged, key)])
          << "stray " << stray << ", wanted " << wanted;
    }
  }
}

TEST(TableReader, ReadsLittleOfALargeTable) {
  // As it is, and with one number in ten thousand far from the others, where every guess is wrong.
  const std::string even = largeTable();
  const std::string uneven = even + tableLine({"Z99999", "ACMETOOL"}) + "\r\n";
  struct Case {
    const std::string& bytes;
    TableReader::Range range;
    int maxCalls;
  };
  for (const auto& [bytes, range, maxCalls] :
       {Case{even, {u"A00000", u"A09999"}, 4}, Case{even, {u"Q", u"B"}, 20},
        Case{uneven, {u"A00000", u"Z99999"}, 25}}) {
    for (const StringView key :
         {u"A00000", u"A05000", u"A03333", u"A0777", u"A09999", u"Z", u"!"}) {
      BytesFile::Reading reading;
      found(bytes, bytes.size(), String{key}, reading, range);
      EXPECT_LE(reading.calls, maxCalls) << toUtf8(key);
      EXPECT_LE(reading.bytes, 64'000U) << toUtf8(key);
    }
  }
}

TEST(TableReader, EndsBeforeTheEndMarkOfOldTexts) {
  const std::string bytes = largeTable();
  for (const StringView key : {u"A00000", u"A09990", u"A09999", u"Z"}) {
    BytesFile::Reading reading;
    const Strings expected = found(bytes, bytes.size(), String{key}, reading);
    EXPECT_EQ(found(bytes + "\x1A", bytes.size() + 1, String{key}, reading), expected)
        << toUtf8(key);
  }
}

TEST(TableReader, TellsOfEveryFailureToRead) {
  const std::string bytes = largeTable();
  BytesFile::Reading whole;
  const Strings expected = found(bytes, bytes.size(), u"A04321", whole);
  ASSERT_EQ(expected.front().substr(10, 6), "A04321");
  for (int call = 1; call <= whole.calls; ++call) {
    BytesFile::Reading reading;
    reading.failAt = call;
    try {
      found(bytes, bytes.size(), u"A04321", reading);
      ADD_FAILURE() << "call " << call << " did not fail";
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), 75) << call;
    }
    EXPECT_EQ(reading.calls, call);
  }
}

}  // namespace
}  // namespace keyscout::test
