// What a keystroke costs, beside SQLite and a search in memory, on the same catalogs in the same
// run. `scripts/bench` builds and runs it.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>

#include "bench_catalog.h"
#include "contenders.h"
#include "file_cache.h"
#include "lookup_stage.h"
#include "memory_use.h"
#include "platform/decorators/metered_files.h"
#include "platform/posix/posix_files.h"
#include "ratio_table.h"
#include "slow_files.h"

namespace keyscout::bench {
namespace {

constexpr std::size_t keyCount = 2'000;
constexpr std::size_t coldKeyCount = 25;

struct Question {
  const char* name;
  Brands brands;
};

const std::vector<Question>& questions() {
  static const std::vector<Question> all{{"new_text", {}},
                                         {"one_brand_of_20", {"KELVARA"}},
                                         {"three_authorized", {"ARVIK", "KELVARA", "TARGONE"}},
                                         {"five_numbers", {BenchCatalog::rareBrand}},
                                         {"none_behind", {BenchCatalog::earlyBrand}}};
  return all;
}

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

double medianOf(std::vector<double> times) {
  const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
  std::nth_element(times.begin(), middle, times.end());
  return *middle;
}

/// Everything that is measured on one catalog. SQLite takes part where there is room for it.
class Course {
 public:
  Course(const BenchCatalog& catalog, bool hasContenders)
      : catalog_(catalog), hasContenders_(hasContenders), keys_(catalog.randomTexts(keyCount)) {
    if (hasContenders) sqlite_.emplace(catalog);
  }

  void add() {
    const auto nothing = [](std::size_t) {};
    for (const Question& question : questions()) {
      const Brands& brands = question.brands;
      addOne(
          question.name,
          [this, &brands](std::size_t key) {
            stage().focusText();
            if (key == 0) stage().setBrands(brands);
          },
          [this](std::size_t key) { stage().enter(keys_[key]); });
      if (hasContenders_)
        addOne(std::string{"sqlite_"} + question.name, nothing,
               [this, &brands](std::size_t key) { sqlite_->find(keys_[key], brands); });
    }
    addOne(
        "one_more_character",
        [this](std::size_t key) {
          if (key == 0) stage().setBrands({});
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
          if (key == 0) stage().setBrands({});
          stage().focusText();
          stage().enter(keys_[key]);
          stage().press(KeyCodes::escape);  // a key that comes up, as after typing
          for (const auto code : {KeyCodes::down, KeyCodes::pageDown, KeyCodes::pageDown})
            stage().press(code);
        },
        [this](std::size_t) { stage().press(KeyCodes::down); });
    addOne(
        "slow_files", [this](std::size_t) { slowStage().focusText(); },
        [this](std::size_t key) { slowStage().enter(keys_[key]); });
    if (hasContenders_)
      addOne("sorted_memory", nothing, [this](std::size_t key) { sorted().find(keys_[key], {}); });
  }

  /// Fails where the contenders do not give the same answers: there would be nothing to compare.
  void check() {
    if (!hasContenders_) return;
    for (const Question& question : questions()) {
      stage().setBrands(question.brands);
      for (std::size_t key = 0; key < 20; ++key) {
        stage().enter(keys_[key]);
        Answer listed = stage().entries();
        std::erase(listed, "");  // fill the list up at the end of the catalog
        if (listed != sqlite_->find(keys_[key], question.brands) ||
            listed != sorted().find(keys_[key], question.brands))
          throw std::runtime_error{"the answers for " + keys_[key] + ", " + question.name +
                                   ", differ"};
      }
    }
  }

  /// What the questions read, each on the average.
  std::vector<ReadingFigures> reading() {
    PosixFiles plain;
    MeteredFiles metered{plain};
    LookupStage counted{catalog_.directory(), metered};
    std::vector<ReadingFigures> figures;
    for (const Question& question : questions()) {
      counted.setBrands(question.brands);
      constexpr std::size_t count = 500;
      metered.reset();
      for (std::size_t key = 0; key < count; ++key) counted.enter(keys_[key]);
      const auto average = [&](std::uint64_t total) { return static_cast<double>(total) / count; };
      const auto& reading = metered.reading();
      figures.push_back({question.name, average(reading.calls), average(reading.files),
                         average(reading.stamps), average(reading.bytes)});
    }
    return figures;
  }

  /// The medians of single answers from the disk, in microseconds.
  std::vector<ColdFigures> coldTimes() {
    std::vector<ColdFigures> figures;
    if (!hasContenders_) return figures;
    writeToDisk(catalog_.directory());
    const auto timed = [&](const std::filesystem::path& files, const auto& work) {
      std::vector<double> times;
      for (std::size_t key = 0; key < coldKeyCount; ++key) {
        dropFromMemory(files);
        const auto start = std::chrono::steady_clock::now();
        work(keys_[key]);
        times.push_back(
            std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start)
                .count());
      }
      return medianOf(times);
    };
    for (const Question& question : questions()) {
      stage().setBrands(question.brands);
      const double own =
          timed(catalog_.directory(), [&](const std::string& key) { stage().enter(key); });
      // SQLite's own memory of the file goes with the connection.
      const double sqlite = timed(sqlite_->file(), [&](const std::string& key) {
        sqlite_->forget();
        sqlite_->find(key, question.brands);
      });
      figures.push_back({question.name, own, sqlite});
    }
    return figures;
  }

 private:
  void addOne(const std::string& name, std::function<void(std::size_t)> prepare,
              std::function<void(std::size_t)> work) {
    benchmark::RegisterBenchmark(
        (name + "/" + catalog_.name()).c_str(),
        [prepare, work](benchmark::State& state) { measure(state, prepare, work); })
        ->UseManualTime()
        ->Unit(benchmark::kMicrosecond);
  }

  LookupStage& stage() {
    if (!stage_) {
      slowStage_.reset();
      stage_.emplace(catalog_.directory(), files_);
    }
    return *stage_;
  }
  LookupStage& slowStage() {
    if (!slowStage_) {
      stage_.reset();
      slowStage_.emplace(catalog_.directory(), slowFiles_);
    }
    return *slowStage_;
  }
  SortedCatalog& sorted() { return sorted_ ? *sorted_ : sorted_.emplace(catalog_); }

  const BenchCatalog& catalog_;
  bool hasContenders_;
  std::vector<std::string> keys_;
  PosixFiles files_;
  SlowFiles slowFiles_{files_};
  // One at a time: their controls would share one state.
  std::optional<LookupStage> stage_;
  std::optional<LookupStage> slowStage_;
  std::optional<SqliteCatalog> sqlite_;
  std::optional<SortedCatalog> sorted_;
};

int run(int argc, char** argv) {
  std::filesystem::path folder = "bench-data";
  bool isHuge = false;
  for (int i = 1; i < argc; ++i) {
    if (std::string_view{argv[i]} == "--huge") {
      isHuge = true;
    } else {
      folder = argv[i];
    }
  }
  constexpr std::size_t million = 1'000'000;
  std::vector<BenchCatalog> catalogs;
  for (const Layout layout : {Layout::mixed, Layout::families})
    for (const std::size_t size : {million, 10 * million})
      catalogs.emplace_back(size, layout, folder);
  if (isHuge) {
    std::cerr << "the catalog of 100 million numbers takes 8 GB in " << folder << '\n';
    catalogs.emplace_back(100 * million, Layout::mixed, folder);
  }

  // Each catalog has its turn alone: their controls would share one state.
  MedianReporter reporter;
  std::vector<CatalogFigures> figures;
  for (const BenchCatalog& catalog : catalogs) {
    const long memory = memoryOfLookups(catalog);
    Course course{catalog, catalog.size() <= 10 * million};
    auto reading = course.reading();
    course.check();
    benchmark::ClearRegisteredBenchmarks();
    course.add();
    benchmark::RunSpecifiedBenchmarks(&reporter);
    figures.push_back({catalog.name(), std::move(reading), course.coldTimes(), memory});
  }
  printFigures(reporter, figures);
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
