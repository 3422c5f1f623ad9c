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
};

class LookupAnswers : public testing::TestWithParam<Question> {};

TEST_P(LookupAnswers, AreWhatTheControlShows) {
  const SmallCatalog catalog;
  const LookupAnswer answer = ask(catalog, GetParam().request);
  EXPECT_EQ(numbersOf(answer), GetParam().numbers);
  EXPECT_EQ(answer.endsCatalog, GetParam().endsCatalog);
}

LookupRequest request(const char* text, const char* brand = "",
                      const std::vector<std::string>& authorized = {},
                      std::optional<int> count = {}) {
  return {{}, text, brand, authorized, count};
}

const Question questions[] = {
    {"FirstPage", request("ab-0"), "AB-00 AB-01 AB-02 AB-03 AB-10 AB-11 AB-12 AB-13 AB-20 ", false},
    {"FromBetweenTwoNumbers", request("AB-11X"), "AB-12 AB-13 AB-20 AB-21 AB-22 AB-23 ", true},
    {"NothingCoversIt", request("AC"), "", false},
    {"OneBrand", request("A", "BOLT"), "AB-01 AB-03 AB-11 AB-13 AB-21 AB-23 ", true},
    {"UnknownBrand", request("A", "NONE"), "", false},
    {"AuthorizedInAnyCase", request("AB-1", "", {"acme", "ACME"}), "AB-10 AB-12 AB-20 AB-22 ",
     true},
    {"FewerThanAPage", request("A", "", {}, 2), "AB-00 AB-01 ", false},
    {"WalkedDown", request("A", "", {}, 11),
     "AB-00 AB-01 AB-02 AB-03 AB-10 AB-11 AB-12 AB-13 AB-20 AB-21 AB-22 ", false},
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
    {"NoIndex", [](const SmallCatalog& c) { c.remove("catindex.txt"); }, "File not found"},
    {"NoTable", [](const SmallCatalog& c) { c.remove("2.txt"); }, "Missing catalog table"},
    {"NoDirectory", [](const SmallCatalog& c) { std::filesystem::remove_all(c.path()); },
     "is not a directory"},
};

INSTANTIATE_TEST_SUITE_P(All, LookupRefusals, testing::ValuesIn(refusals),
                         [](const auto& test) { return test.param.name; });

TEST(LookupOutput, IsTextForPeopleAndJsonForPrograms) {
  const LookupAnswer answer{{{"A-1", "ACME", 1}, {"\xC3\x84-100", "BOLT", 2}, {"B", "", 3}}, true};
  std::ostringstream text;
  writeText(text, answer);
  EXPECT_EQ(text.str(), "A-1    ACME\n\xC3\x84-100  BOLT\nB\n");

  std::ostringstream json;
  writeJson(json, request("a"), answer);
  const auto parsed = nlohmann::json::parse(json.str());
  EXPECT_EQ(parsed["text"], "a");
  EXPECT_EQ(parsed["entries"][1]["number"], "\xC3\x84-100");
  EXPECT_EQ(parsed["entries"][2]["index"], 3);
  EXPECT_EQ(parsed["endOfCatalog"], true);
}

}  // namespace
}  // namespace keyscout::test
