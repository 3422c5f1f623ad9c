#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "apps/cli/lookup/lookup.h"
#include "apps/cli/lookup/lookup_output.h"
#include "platform/local/native_files.h"
#include "support/small_catalog.h"

namespace keyscout::test {
namespace {

LookupAnswer ask(const SmallCatalog& catalog, LookupRequest request) {
  NativeFiles files;
  request.directory.path = catalog.path();
  request.directory = withDownloadFound(request.directory);
  return lookUp(files, request);
}

std::string numbersOf(const LookupAnswer& answer) {
  std::string numbers;
  for (const LookupEntry& entry : answer.entries) numbers += entry.number + ' ';
  return numbers;
}

struct Question {
  const char* name;
  LookupRequest request;
  const char* numbers;
  bool endsCatalog;
  std::vector<std::string> notes = {};
};

class LookupAnswers : public testing::TestWithParam<Question> {};

TEST_P(LookupAnswers, AreWhatTheControlShows) {
  const SmallCatalog catalog;
  const LookupAnswer answer = ask(catalog, GetParam().request);
  EXPECT_EQ(numbersOf(answer), GetParam().numbers);
  EXPECT_EQ(answer.endsCatalog, GetParam().endsCatalog);
  EXPECT_EQ(answer.notes, GetParam().notes);
}

LookupRequest request(const char* text, const char* brand = "",
                      const std::vector<std::string>& authorized = {},
                      std::optional<int> count = {}) {
  return {{}, text, brand, authorized, count};
}

const Question questions[] = {
    {"FirstPage", request("ab-0"), "AB-00 AB-01 AB-02 AB-03 AB-10 AB-11 AB-12 AB-13 AB-20 ", false},
    {"FromBetweenTwoNumbers", request("AB-11X"), "AB-12 AB-13 AB-20 AB-21 AB-22 AB-23 ", true},
    {"ExactlyToTheEnd", request("AB-03"), "AB-03 AB-10 AB-11 AB-12 AB-13 AB-20 AB-21 AB-22 AB-23 ",
     true},
    {"NothingCoversIt", request("AC"), "", true, {"nothing in the catalog follows AC"}},
    {"EmptyText", request(""), "", false, {"the text is empty, and then no list is shown"}},
    {"OneBrand", request("A", "BOLT"), "AB-01 AB-03 AB-11 AB-13 AB-21 AB-23 ", true},
    {"NothingOfTheBrand",
     request("AB-23X", "BOLT", {"BOLT"}),
     "",
     true,
     {"nothing in the catalog follows AB-23X of brand BOLT that is authorized"}},
    {"UnknownBrand",
     request("A", "NONE"),
     "",
     true,
     {"brand NONE is not in brandinfo.txt, and then no list is shown"}},
    {"BrandInOtherCase",
     request("A", "Bolt"),
     "",
     true,
     {"brand Bolt is spelled BOLT in brandinfo.txt, and letter case counts"}},
    {"AuthorizedUnknown",
     request("AB-1", "", {"acme", "NONE"}),
     "AB-10 AB-12 AB-20 AB-22 ",
     true,
     {"authorized brand NONE is not in brandinfo.txt"}},
    {"AuthorizedInAnyCase", request("AB-1", "", {"acme", "ACME"}), "AB-10 AB-12 AB-20 AB-22 ",
     true},
    {"FewerThanAPage", request("A", "", {}, 2), "AB-00 AB-01 ", false},
    {"WalkedDown", request("A", "", {}, 11),
     "AB-00 AB-01 AB-02 AB-03 AB-10 AB-11 AB-12 AB-13 AB-20 AB-21 AB-22 ", false},
    {"WalkedExactlyToTheEnd", request("A", "", {}, 12),
     "AB-00 AB-01 AB-02 AB-03 AB-10 AB-11 AB-12 AB-13 AB-20 AB-21 AB-22 AB-23 ", true},
    {"WalkedToTheEnd", request("A", "", {}, 99),
     "AB-00 AB-01 AB-02 AB-03 AB-10 AB-11 AB-12 AB-13 AB-20 AB-21 AB-22 AB-23 ", true},
};

INSTANTIATE_TEST_SUITE_P(All, LookupAnswers, testing::ValuesIn(questions),
                         [](const auto& test) { return test.param.name; });

struct Refusal {
  const char* name;
  void (*inflict)(const SmallCatalog&);
  const char* sentence;
};

class LookupRefusals : public testing::TestWithParam<Refusal> {};

TEST_P(LookupRefusals, SayWhatIsWrong) {
  const SmallCatalog catalog;
  GetParam().inflict(catalog);
  try {
    ask(catalog, request("A", "", {}, 12));
    FAIL() << "the lookup did not fail";
  } catch (const std::runtime_error& failure) {
    EXPECT_NE(std::string{failure.what()}.find(GetParam().sentence), std::string::npos)
        << failure.what();
  }
}

const Refusal refusals[] = {
    {"InProcess", [](const SmallCatalog& c) { c.writeLines("catcontrol.txt", {"INPROCESS"}); },
     "Keyscout will be enabled as soon as"},
    {"Corrupt", [](const SmallCatalog& c) { c.writeLines("catcontrol.txt", {"CORRUPT"}); },
     "the latest download contains invalid data."},
    {"NoDownload", [](const SmallCatalog& c) { c.remove("download.txt"); },
     "The catalog number download file does not exist."},
    {"NoDownloadWhileInProcess",
     [](const SmallCatalog& c) {
       c.remove("download.txt");
       c.writeLines("catcontrol.txt", {"INPROCESS"});
     },
     "Keyscout will be enabled as soon as"},
    {"NoIndex", [](const SmallCatalog& c) { c.remove("catindex.txt"); },
     "catindex.txt: File not found"},
    {"NoFirstTable", [](const SmallCatalog& c) { c.remove("0.txt"); }, "0.txt: File not found"},
    {"NoTable", [](const SmallCatalog& c) { c.remove("2.txt"); }, "Missing catalog table"},
    {"NoDirectory", [](const SmallCatalog& c) { std::filesystem::remove_all(c.path()); },
     "is not a directory"},
};

INSTANTIATE_TEST_SUITE_P(All, LookupRefusals, testing::ValuesIn(refusals),
                         [](const auto& test) { return test.param.name; });

TEST(LookupOutput, IsTextForPeopleAndJsonForPrograms) {
  const LookupAnswer answer{{{"A-1", "ACME", 1}, {"\xC3\x84-100", "BOLT", 2}, {"B", "", 3}},
                            true,
                            {"authorized brand X is not in brandinfo.txt"}};
  std::ostringstream text;
  writeText(text, answer, TextStyle{false});
  EXPECT_EQ(text.str(), "A-1    ACME\n\xC3\x84-100  BOLT\nB\n");

  std::ostringstream styled;
  writeText(styled, {{{"A", "ACME", 1}}, false, {}}, TextStyle{true});
  EXPECT_EQ(styled.str(), "\x1B[1mA\x1B[0m  \x1B[2mACME\x1B[0m\n");

  std::ostringstream json;
  writeJson(json, request("a"), answer);
  const auto parsed = nlohmann::json::parse(json.str());
  EXPECT_EQ(parsed["text"], "a");
  EXPECT_EQ(parsed["entries"][1]["number"], "\xC3\x84-100");
  EXPECT_EQ(parsed["entries"][2]["index"], 3);
  EXPECT_EQ(parsed["endOfCatalog"], true);
  EXPECT_EQ(parsed["notes"][0], "authorized brand X is not in brandinfo.txt");
}

}  // namespace
}  // namespace keyscout::test
