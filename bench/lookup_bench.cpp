// What a keystroke costs, beside a bare read of the same bytes, SQLite and a search in memory, on
// the same catalogs in the same run. `scripts/bench` builds and runs it.

#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>

#include "bench_catalog.h"
#include "contenders.h"
#include "lookup_stage.h"
#include "memory_use.h"
#include "ratio_table.h"

namespace keyscout::bench {
namespace {

constexpr std::size_t keyCount = 2'000;
constexpr const char* filteredBrand = "KELVARA";

/// Times `work` alone for key after key; `prepare` brings the stage to where it begins.
void measure(benchmark::State& state, const std::function<void(std::size_t)>& prepare,
             const std::function<void(std::size_t)>& work) {
  std::size_t key = 0;
  for ([[maybe_unused]] auto iteration : state) {
    prepare(key);
    const auto start = std::chrono::steady_clock::now();
    work(key);
    const auto end = std::chrono::steady_clock::now();
    state.SetIterationTime(std::chrono::duration<double>(end - start).count());
    key = (key + 1) % keyCount;
  }
}

/// Everything that is measured on one catalog. The contenders are made when they are first asked.
class Course {
 public:
  explicit Course(const BenchCatalog& catalog)
      : catalog_(catalog), keys_(catalog.randomNumbers(keyCount)) {}

  void add() {
    const auto nothing = [](std::size_t) {};
    const auto focus = [this](std::size_t) { stage().focusText(); };
    addOne("bare_read", nothing, [this](std::size_t key) { readBare(parts()[key]); });
    addOne("new_text", focus, [this](std::size_t key) { stage().enter(keys_[key]); });
    addOne(
        "one_more_character",
        [this](std::size_t key) {
          const std::string& number = keys_[key];
          stage().focusText();
          stage().enter("");
          stage().enter(number.substr(0, number.size() - 1));
          stage().press(KeyCodes::end);
        },
        [this](std::size_t key) { stage().type(keys_[key].back()); });
    addOne(
        "down_on_last",
        [this](std::size_t key) {
          stage().focusText();
          stage().enter(keys_[key]);
          stage().press(KeyCodes::escape);  // a key that comes up, as after typing
          for (const auto code : {KeyCodes::down, KeyCodes::pageDown, KeyCodes::pageDown})
            stage().press(code);
        },
        [this](std::size_t) { stage().press(KeyCodes::down); });
    addOne("sqlite", nothing, [this](std::size_t key) { sqlite().find(keys_[key], ""); });
    addOne("sorted_memory", nothing, [this](std::size_t key) { sorted().find(keys_[key], ""); });
    addOne(
        "new_text_brand",
        [this](std::size_t) {
          stage().focusText();
          stage().setBrand(filteredBrand);
        },
        [this](std::size_t key) { stage().enter(keys_[key]); });
    addOne("sqlite_brand", nothing,
           [this](std::size_t key) { sqlite().find(keys_[key], filteredBrand); });
  }

  /// Fails where the contenders do not give the same answers: there would be nothing to compare.
  void check() {
    for (std::size_t key = 0; key < 200; ++key) {
      for (const std::string brand : {"", filteredBrand}) {
        stage().setBrand(brand);
        stage().enter(keys_[key]);
        Answer listed = stage().entries();
        std::erase(listed, "");  // fill the list up at the end of the catalog
        if (listed != sqlite().find(keys_[key], brand) ||
            listed != sorted().find(keys_[key], brand))
          throw std::runtime_error{"the answers for " + keys_[key] + " differ"};
      }
    }
  }

  double bytesPerLookup() {
    std::size_t total = 0;
    for (const auto& parts : parts())
      for (const FilePart& part : parts) total += part.bytes;
    return static_cast<double>(total) / static_cast<double>(keyCount);
  }

 private:
  void addOne(const char* name, std::function<void(std::size_t)> prepare,
              std::function<void(std::size_t)> work) {
    benchmark::RegisterBenchmark((name + ("/" + catalog_.name())).c_str(),
                                 [this, prepare, work](benchmark::State& state) {
                                   if (stage_) stage_->setBrand("");
                                   measure(state, prepare, work);
                                 })
        ->UseManualTime()
        ->Unit(benchmark::kMicrosecond);
  }

  LookupStage& stage() { return stage_ ? *stage_ : stage_.emplace(catalog_.directory()); }
  SqliteCatalog& sqlite() { return sqlite_ ? *sqlite_ : sqlite_.emplace(catalog_); }
  SortedCatalog& sorted() { return sorted_ ? *sorted_ : sorted_.emplace(catalog_); }
  const std::vector<std::vector<FilePart>>& parts() {
    if (parts_.empty()) {
      LookupStage& lookups = stage();
      lookups.setBrand("");
      for (const std::string& key : keys_) {
        lookups.enter("");
        lookups.enter(key);
        // The search always finds the table that begins at or below an existing number.
        const int firstTable = tableOf(key);
        parts_.push_back(requiredParts(catalog_.directory(), firstTable, lookups.entries()));
      }
    }
    return parts_;
  }
  int tableOf(const std::string& key) {
    // A load moves on to the following table where the first one ends.
    int table = stage().currentTable();
    while (table > 0 && firstNumberOf(table) > key) --table;
    return table;
  }
  std::string firstNumberOf(int table) const {
    return catalog_.number(static_cast<std::size_t>(table) * ((catalog_.size() + 1000) / 1001));
  }

  const BenchCatalog& catalog_;
  std::vector<std::string> keys_;
  std::optional<LookupStage> stage_;
  std::optional<SqliteCatalog> sqlite_;
  std::optional<SortedCatalog> sorted_;
  std::vector<std::vector<FilePart>> parts_;
};

int run(int argc, char** argv) {
  const std::filesystem::path folder = argc > 1 ? argv[1] : "bench-data";
  const BenchCatalog catalogs[] = {{1'000'000, folder}, {10'000'000, folder}};

  // Each catalog has its turn alone: their controls would share one state.
  MedianReporter reporter;
  std::vector<CatalogFigures> figures;
  for (const BenchCatalog& catalog : catalogs) {
    const long memory = memoryOfLookups(catalog);
    Course course{catalog};
    course.check();
    benchmark::ClearRegisteredBenchmarks();
    course.add();
    benchmark::RunSpecifiedBenchmarks(&reporter);
    figures.push_back({catalog.name(), course.bytesPerLookup(), memory});
  }
  printRatios(reporter, figures);
  return 0;
}

}  // namespace
}  // namespace keyscout::bench

int main(int argc, char** argv) {
  try {
    benchmark::Initialize(&argc, argv);
    return keyscout::bench::run(argc, argv);
  } catch (const std::exception& failure) {
    std::cerr << "keyscout_bench: " << failure.what() << '\n';
    return 1;
  }
}
