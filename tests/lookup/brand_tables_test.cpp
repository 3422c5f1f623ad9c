#include "lookup/brand_tables.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>

#include "apps/cli/packing/pack_catalog.h"
#include "base/utf8.h"
#include "support/stage.h"

namespace keyscout::test {
namespace {

namespace fs = std::filesystem;

/// Counts the files that are opened.
class OpenedFiles final : public CallHook {
 public:
  void onCall(std::string_view operation) override { count += operation == "openFile"; }
  bool minds(std::string_view) const override { return false; }

  int count = 0;
};

/// A packed catalog of tables of three numbers each: A00 to A02 in table 0, A03 to A05 in table 1.
class PackedFolder {
 public:
  explicit PackedFolder(const std::vector<std::string>& brands) {
    std::ofstream download{path() / "download.txt", std::ios::binary};
    download << "FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]\r\n";
    for (std::size_t i = 0; i < brands.size(); ++i)
      download << tableLine({number(i), brands[i]}) << "\r\n";
    download.close();
    PackOptions options;
    options.download = path() / "download.txt";
    options.directory = path();
    options.linesPerTable = 3;
    packCatalog(options);
  }

  static std::string number(std::size_t i) { return "A" + std::to_string(100 + i).substr(1); }

  const fs::path& path() const { return folder_.path(); }
  std::string read(const std::string& file) const {
    std::ifstream in{path() / file, std::ios::binary};
    return {std::istreambuf_iterator<char>{in}, {}};
  }
  void write(const std::string& file, const std::string& bytes) const {
    std::ofstream{path() / file, std::ios::binary} << bytes;
  }
  /// As if the file had been written at another time than the brand index.
  void setAge(const std::string& file, std::chrono::milliseconds older) const {
    fs::last_write_time(path() / file, fs::last_write_time(path() / "brandindex.txt") - older);
  }

 private:
  TemporaryFolder folder_;
};

/// What a new host finds in the folder.
struct Found {
  explicit Found(const PackedFolder& folder, StringView brand,
                 const std::vector<StringView>& authorized = {}, StringView text = u"A") {
    stage.controller.setKeyscoutDirectory(fromUtf8(folder.path().string()));
    stage.controller.setKeyscoutIndexFile(u"catindex.txt");
    stage.controller.setCatalogNumbersDownloadFile(u"download.txt");
    EXPECT_TRUE(stage.controller.init());
    stage.controller.setKeyscoutEnabled(True);
    const auto list = std::make_shared<LocalBrandList>();
    for (const StringView name : authorized) list->add(name);
    if (!authorized.empty()) stage.controller.setAuthorizedBrands(list);
    const auto control = stage.addControl();
    control->control.setBrand(brand);
    stage.focus(*control);
    files.count = 0;
    stage.form->paste(text);
    entries = control->entries();
    trace = stage.takeTrace();
    std::erase(entries, "");
  }

  OpenedFiles files;
  Stage stage{&files};
  Strings entries;
  Strings trace;
};

/// 30 numbers in 10 tables: ACME in table 0 and in table 8, no brand in table 4.
std::vector<std::string> tenTables() {
  std::vector<std::string> brands(30, "BOLT");
  brands[1] = "ACME";
  brands[25] = "ACME";
  brands[13] = "";
  return brands;
}

TEST(BrandTables, WhatHoldsNoAdmittedBrandIsNotRead) {
  const PackedFolder folder{tenTables()};
  struct Case {
    StringView brand;
    std::vector<StringView> authorized;
    Strings entries;
    int opened;  // the brand index among them
  };
  const Case cases[] = {
      {u"ACME", {}, {"A01", "A25"}, 3},
      {u"ACME", {u"BOLT"}, {}, 2},
      {u"", {u"acme", u"CIRA"}, {"A01", "A25"}, 3},
      {u"", {u""}, {"A13"}, 3},
      {u"", {u"CIRA"}, {}, 2},
      {u"acme", {}, {}, 2},
      {u"", {}, {"A00", "A01", "A02", "A03", "A04", "A05", "A06", "A07", "A08"}, 3}};
  for (const Case& c : cases) {
    const Found found{folder, c.brand, c.authorized};
    EXPECT_EQ(found.entries, c.entries) << toUtf8(c.brand);
    EXPECT_EQ(found.files.count, c.opened) << toUtf8(c.brand);
  }
}

TEST(BrandTables, AreReadWhereTheBrandIndexIsNotSurelyTrue) {
  const PackedFolder other{{"ACME", "ACME", "ACME", "ACME", "BOLT", "BOLT"}};
  struct Case {
    std::string what;
    std::function<void(const PackedFolder&)> change;
    int opened;
  };
  const auto edit = [](const std::string& from, const std::string& to) {
    return [from, to](const PackedFolder& folder) {
      std::string bytes = folder.read("brandindex.txt");
      const auto at = bytes.find(from);
      ASSERT_NE(at, bytes.npos);
      folder.write("brandindex.txt", bytes.replace(at, from.size(), to));
    };
  };
  const Case cases[] = {
      {"none", [](const auto& folder) { fs::remove(folder.path() / "brandindex.txt"); }, 10},
      {"empty", [](const auto& folder) { folder.write("brandindex.txt", ""); }, 11},
      {"cut",
       [](const auto& folder) {
         const std::string bytes = folder.read("brandindex.txt");
         folder.write("brandindex.txt", bytes.substr(0, bytes.rfind("END")));
       },
       11},
      {"another catalog's",
       [&](const auto& folder) { folder.write("brandindex.txt", other.read("brandindex.txt")); },
       11},
      {"made before the index was written",
       [](const auto& folder) {
         folder.write("catindex.txt", folder.read("catindex.txt") + "\r\n");
       },
       11},
      {"forged", edit("0,8 ACME", "0 ACME"), 11},
      {"forged span", edit("0,8 ACME", "0,8-4 ACME"), 11},
      {"forged table", edit("0,8 ACME", "0,99999999999999999999 ACME"), 11},
      {"another format", edit("BRANDINDEX 1", "BRANDINDEX 2"), 11},
      {"a folder",
       [](const auto& folder) {
         fs::remove(folder.path() / "brandindex.txt");
         fs::create_directory(folder.path() / "brandindex.txt");
       },
       10},
      {"older than the tables",
       [](const auto& folder) {
         for (int i = 0; i < 10; ++i)
           folder.setAge(std::to_string(i) + ".txt", std::chrono::milliseconds{0});
       },
       11},
      {"as it was", [](const auto&) {}, 3}};
  for (const Case& c : cases) {
    const PackedFolder folder{tenTables()};
    c.change(folder);
    const Found found{folder, u"ACME"};
    EXPECT_EQ(found.entries, (Strings{"A01", "A25"})) << c.what;
    EXPECT_EQ(found.files.count, c.opened) << c.what;
    EXPECT_FALSE(found.stage.controller.KeyscoutLocked()) << c.what;
  }
}

TEST(BrandTables, ATableThatWasChangedIsRead) {
  const PackedFolder folder{tenTables()};
  const std::string table = folder.read("5.txt");
  const std::string changed = std::string{table}.replace(table.find("BOLT"), 4, "ACME");
  folder.write("5.txt", changed);
  folder.setAge("5.txt", std::chrono::milliseconds{-1});
  EXPECT_EQ(Found(folder, u"ACME").entries, (Strings{"A01", "A15", "A25"})) << "younger";
  folder.write("5.txt", changed + tableLine({"A175", "ACME"}) + "\r\n");
  folder.setAge("5.txt", std::chrono::milliseconds{1});
  EXPECT_EQ(Found(folder, u"ACME").entries, (Strings{"A01", "A15", "A175", "A25"})) << "larger";
}

TEST(BrandTables, AMissingTableIsMissed) {
  const PackedFolder folder{tenTables()};
  fs::remove(folder.path() / "5.txt");
  const Found found{folder, u"ACME"};
  EXPECT_TRUE(found.stage.controller.KeyscoutLocked());
  EXPECT_NE(std::ranges::find(found.trace, "! loadKeyscoutCombo 75"), found.trace.end());
}

TEST(BrandTables, ListsAreTheSameWithAndWithoutABrandIndex) {
  std::mt19937 random{3};
  const std::vector<StringView> names{u"", u"ACME", u"acme", u"BOLT", u"CIRA"};
  for (int round = 0; round < 40; ++round) {
    std::vector<std::string> brands(90);
    for (std::size_t i = 0; i < brands.size(); ++i)
      brands[i] = toUtf8(i > 0 && random() % 8 != 0 ? fromUtf8(brands[i - 1])
                                                    : String{names[random() % names.size()]});
    const PackedFolder folder{brands};
    const StringView brand = names[random() % names.size()];
    std::vector<StringView> authorized;
    for (const StringView name : {u"", u"Acme", u"BOLT", u"CIRA"})
      if (random() % 3 == 0) authorized.push_back(name);
    const String text = fromUtf8(PackedFolder::number(random() % 90));
    const Found with{folder, brand, authorized, text};
    fs::remove(folder.path() / "brandindex.txt");
    const Found without{folder, brand, authorized, text};
    ASSERT_EQ(with.entries, without.entries) << round;
    ASSERT_EQ(with.trace, without.trace) << round;
  }
}

}  // namespace
}  // namespace keyscout::test
