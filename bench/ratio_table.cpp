#include "ratio_table.h"

#include <cstdio>
#include <stdexcept>

namespace keyscout::bench {

void MedianReporter::ReportRuns(const std::vector<Run>& runs) {
  ConsoleReporter::ReportRuns(runs);
  for (const Run& run : runs) {
    if (run.error_occurred) throw std::runtime_error{run.error_message};
    if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median")
      medians_[run.run_name.function_name] = run.GetAdjustedRealTime();
  }
}

namespace {

double ratio(double one, double other) { return other > 0 ? one / other : 0; }

void printAnswers(const MedianReporter& reporter, const CatalogFigures& catalog) {
  for (const ReadingFigures& reading : catalog.reading) {
    const double own = reporter.median(reading.question + "/" + catalog.name);
    const double sqlite = reporter.median("sqlite_" + reading.question + "/" + catalog.name);
    std::printf("%-13s %-17s %9.1f %9.1f %7.2f %8.1f %7.1f %7.1f %9.1f\n", catalog.name.c_str(),
                reading.question.c_str(), own, sqlite, ratio(own, sqlite), reading.calls,
                reading.files, reading.stamps, reading.bytes / 1024);
  }
  for (const char* const other :
       {"one_more_character", "down_on_last", "slow_files", "sorted_memory"})
    std::printf("%-13s %-17s %9.1f\n", catalog.name.c_str(), other,
                reporter.median(std::string{other} + "/" + catalog.name));
}

void printCold(const CatalogFigures& catalog) {
  for (const ColdFigures& cold : catalog.cold)
    std::printf("%-13s %-17s %9.0f %9.0f %7.2f\n", catalog.name.c_str(), cold.question.c_str(),
                cold.own, cold.sqlite, ratio(cold.own, cold.sqlite));
}

}  // namespace

void printFigures(const MedianReporter& reporter, const std::vector<CatalogFigures>& catalogs) {
  std::printf("\n%-13s %-17s %9s %9s %7s %8s %7s %7s %9s\n", "catalog", "question", "own us",
              "sqlite us", "ratio", "reads", "files", "passed", "KiB");
  for (const CatalogFigures& catalog : catalogs) printAnswers(reporter, catalog);

  std::printf("\nfrom the disk\n%-13s %-17s %9s %9s %7s\n", "catalog", "question", "own us",
              "sqlite us", "ratio");
  for (const CatalogFigures& catalog : catalogs) printCold(catalog);

  std::printf("\n%-13s %12s %12s %12s\n", "catalog", "new text", "down on last", "memory KiB");
  const CatalogFigures& first = catalogs.front();
  for (const CatalogFigures& catalog : catalogs) {
    const auto against = [&](const std::string& what) {
      return ratio(reporter.median(what + "/" + catalog.name),
                   reporter.median(what + "/" + first.name));
    };
    std::printf("%-13s %12.2f %12.2f %12ld\n", catalog.name.c_str(), against("new_text"),
                against("down_on_last"), catalog.memoryKiB);
  }
  std::printf("times in new text and down on last: against catalog %s\n", first.name.c_str());
}

}  // namespace keyscout::bench
