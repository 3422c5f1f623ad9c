// Catalogs from CSV lists: which download becomes of a list, and what a list is refused for.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apps/cli/csv/csv_options.h"
#include "apps/cli/packing/pack_fixture.h"

namespace keyscout::test {
namespace {

class Csv : public PackTest {
 protected:
  CsvOptions list(const std::string& bytes) const {
    CsvOptions csv;
    csv.file = root_ / "list.csv";
    csv.number = "Part No";
    csv.brand = "Maker";
    writeFile(csv.file, bytes);
    return csv;
  }

  PackSummary pack(const CsvOptions& csv) const {
    const auto maker = openCsv(csv);
    PackOptions wanted;
    wanted.maker = maker.get();
    wanted.directory = directory();
    return packCatalog(wanted);
  }

  PackError failure(const CsvOptions& csv) const {
    try {
      pack(csv);
    } catch (const PackError& refusal) {
      EXPECT_FALSE(fs::exists(directory()));
      return refusal;
    }
    ADD_FAILURE() << "packed";
    return {"", ExitStatus::success};
  }
};

std::string full(int index, const std::string& number, const std::string& brand) {
  return record(index, number, padded(brand, 50)) + "\r\n";
}

struct Reading {
  const char* name;
  std::string list;
  void (*adjust)(CsvOptions&);
  std::string records;  // of the download
};

const std::vector<Reading> readings = {
    {"semicolons, an index, columns in any order, other letters",
     "Maker;INDEX;part no\r\nACME;7; AB-1 \r\n\r\nBOLT;-2;AB-2\r\n;;\r\n",
     [](CsvOptions& csv) { csv.index = "index"; },
     padded("7", 10) + padded("AB-1", 60) + padded("ACME", 50) + "\r\n" + padded("-2", 10) +
         padded("AB-2", 60) + padded("BOLT", 50) + "\r\n"},
    {"quotes, with delimiters, quotation marks and line ends in them",
     "Part No,Text,Maker\n\"3/4\"\" A,B\",\"one\r\ntwo\n\nthree\",\"A, B & C\"\nX,,\n",
     {},
     full(1, "3/4\" A,B", "A, B & C") + full(2, "X", "")},
    {"tabs and a byte order mark",
     "\xEF\xBB\xBFPart No\tMaker\na;b\tACME\n",
     {},
     full(1, "a;b", "ACME")},
    {"UTF-8, as far as the code page goes",
     "Part No,Maker,Note\n\xC3\x84\xE2\x82\xAC,\xC5\xB8,"
     "\xE2\x86\x92\n",
     {},
     full(1, "\xC4\x80", "\x9F")},
    {"columns by number without a header", "AB-1,x,ACME\nAB-2,y,BOLT",
     [](CsvOptions& csv) {
       csv.hasNoHeader = true;
       csv.number = "1";
       csv.brand = "3";
     },
     full(1, "AB-1", "ACME") + full(2, "AB-2", "BOLT")},
    {"a delimiter that the first line has less of", "Part No;Maker;a,b,c,d\nX;Y;z\n",
     [](CsvOptions& csv) { csv.delimiter = ';'; }, full(1, "X", "Y")},
    {"another code page", "Part No,Maker\n\x8E\x81,\xE1\n",
     [](CsvOptions& csv) { csv.codePage = "850"; }, full(1, "\xC4\xFC", "\xDF")},
    {"the catalog's code page", "Part No,Maker\n\xC4\x80,\x9F\n",
     [](CsvOptions& csv) { csv.codePage = "1252"; }, full(1, "\xC4\x80", "\x9F")},
    {"capitals, of letters that have one", "Part No,Maker\nab\xC3\xA9\xC2\xB5,Acme\n",
     [](CsvOptions& csv) { csv.inUpperCase = true; }, full(1, "AB\xC9\xB5", "Acme")},
    {"the first of equal numbers, whatever their letters",
     "Part No,Maker\nabc,1\nX,2\nABC,3\nX,4\nY,5\naBC,6\n",
     [](CsvOptions& csv) { csv.keepsFirst = true; },
     full(1, "abc", "1") + full(2, "X", "2") + full(5, "Y", "5")},
};

TEST_F(Csv, BecomesADownloadAndACatalog) {
  for (const Reading& reading : readings) {
    SCOPED_TRACE(reading.name);
    CsvOptions csv = list(reading.list);
    if (reading.adjust != nullptr) reading.adjust(csv);
    const PackSummary summary = pack(csv);
    EXPECT_EQ(fileOf("download.txt"), header + reading.records);
    EXPECT_EQ(fileOf("catcontrol.txt"), "READY\r\n");
    EXPECT_EQ(summary.dropped, csv.keepsFirst ? 3U : 0U);
    EXPECT_EQ(summary.downloadName, "download.txt");
    // The download makes the same catalog again.
    const Snapshot made = snapshotOf(directory());
    PackOptions again;
    again.download = directory() / "download.txt";
    again.directory = directory();
    again.acceptsUtf8 = true;
    packCatalog(again);
    EXPECT_EQ(snapshotOf(directory()), made);
    fs::remove_all(directory());
  }
}

struct Fault {
  const char* name;
  std::string list;
  void (*adjust)(CsvOptions&);
  std::string message;  // behind the list's name
};

const std::vector<Fault> faults = {
    {"no such column",
     "No,Maker\nX,Y\n",
     {},
     ":1: There is no column \"Part No\"; there are \"No\" \"Maker\"."},
    {"two of the name", "Part No,part no,Maker,maker\n",
     [](CsvOptions& csv) { csv.number = "PART NO"; },
     ":1: More than one column is named \"Part No\""},
    {"a number beyond the columns", "Part No,Maker\nX,Y\n",
     [](CsvOptions& csv) { csv.brand = "3"; }, ":1: There is no column \"3\""},
    {"a name without a header", "X,Y\n", [](CsvOptions& csv) { csv.hasNoHeader = true; },
     ":1: There is no column \"Part No\"; without a header a column is called by its number."},
    {"a short row",
     "Part No,Text,Maker\n\n\"a\n\",b,c\nX,Y\n",
     {},
     ":3: column 1 \"Part No\": character 2 is the control character 0A (hexadecimal), a line "
     "break"},
    {"a row that ends too early",
     "Part No,\"a\nb\",Maker\nX,Y\n",
     {},
     ":3: column 3 \"Maker\": the row ends before it, with 2 columns"},
    {"no number",
     "Part No,Maker\nX,Y\n  ,Y\n",
     {},
     ":3: column 1 \"Part No\": the catalog number is blank"},
    {"a long number",
     "Part No,Maker\n" + std::string(61, 'X') + ",Y\n",
     {},
     ":2: column 1 \"Part No\": \"" + std::string(60, 'X') +
         "...\" has 61 characters; it may have 60"},
    {"a long brand",
     "Part No,Maker\nX," + std::string(51, 'Y') + "\n",
     {},
     ":2: column 2 \"Maker\": \"" + std::string(51, 'Y') + "\" has 51 characters; it may have 50"},
    {"an index of words", "Part No,Maker,I\nX,Y,7a\n", [](CsvOptions& csv) { csv.index = "I"; },
     ":2: column 3 \"I\": the index \"7a\" must be a decimal number of 32 bits"},
    {"no UTF-8",
     "Part No,Maker\nX,Y\n\xC4,Y\n",
     {},
     ":3: column 1 \"Part No\": its bytes are no UTF-8; say what they are by --code-page"},
    {"no place in the code page",
     "Part No,Maker\nX,\xE2\x86\x92\n",
     {},
     ":2: column 2 \"Maker\": the character \"\xE2\x86\x92\" has no place in Windows-1252"},
    {"UTF-16", std::string("\xFF\xFEP\0a\0", 6), {}, ":1: The file is UTF-16; save it as UTF-8."},
    {"a quotation mark within",
     "Part No,Maker\n3/4\" X,Y\n",
     {},
     ":2: Character 4 of the line is a quotation mark out of place"},
    {"a quotation mark too many",
     "Part No,Maker\nX,\"Y\nZ,W\n",
     {},
     ":2: A quotation mark in the row that begins here is not closed."},
    {"a quotation mark too many in a long list",
     "Part No,Maker\nX,\"Y\n" + std::string(1200000, '\n'),
     {},
     ":2: The row that begins here has no end"},
    {"CR alone", "Part No,Maker\rX,Y\rZ,W\r", {}, ":1: The lines of the file end with CR alone"},
    {"a number twice",
     "Part No,Maker,Text\nX,Y,\"a\nb\"\nZ,Y,\n\nX,Y,\n",
     {},
     ":6: The catalog number \"X\" stands on line 2 already"},
    {"a number twice in capitals", "Part No,Maker\nx,Y\nX,Y\n",
     [](CsvOptions& csv) { csv.inUpperCase = true; },
     ":3: The catalog number \"X\" stands on line 2 already"},
    {"nothing but a header", "Part No,Maker\n", {}, ":1: There are no records."},
    {"nothing", "", {}, ":1: The list is empty."},
};

TEST_F(Csv, IsRefusedByItsLineAndColumn) {
  for (const Fault& fault : faults) {
    SCOPED_TRACE(fault.name);
    CsvOptions csv = list(fault.list);
    if (fault.adjust != nullptr) fault.adjust(csv);
    const PackError refusal = failure(csv);
    const std::string message = csv.file.string() + fault.message;
    EXPECT_EQ(std::string{refusal.what()}.substr(0, message.size()), message);
    EXPECT_EQ(refusal.exitStatus(), 1);
  }
}

TEST_F(Csv, CannotBeginWithoutAListOrWithAnUnknownCodePage) {
  CsvOptions csv = list("Part No,Maker\nX,Y\n");
  csv.codePage = "KLINGON";
  EXPECT_STREQ(failure(csv).what(), "The code page \"KLINGON\" is not known.");
  EXPECT_EQ(failure(csv).exitStatus(), 2);
  csv.file = root_ / "nowhere.csv";
  EXPECT_NE(
      std::string{failure(csv).what()}.find("nowhere.csv: The list cannot be opened: No such"),
      std::string::npos);
}

}  // namespace
}  // namespace keyscout::test
