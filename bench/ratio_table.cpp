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

void printRatios(const MedianReporter& reporter, const std::vector<CatalogFigures>& catalogs) {
  std::printf("\n%-8s %9s %9s %9s %9s %9s %9s %9s | %6s %6s %6s | %9s %9s\n", "catalog", "a read",
              "b text", "c char", "d down", "e sqlite", "e sorted", "b brand", "b/a", "b/e",
              "brand", "bytes", "memory");
  std::printf("%-8s %9s %9s %9s %9s %9s %9s %9s | %6s %6s %6s | %9s %9s\n", "", "us", "us", "us",
              "us", "us", "us", "us", "", "sqlite", "b/e", "per text", "KiB");
  for (const CatalogFigures& catalog : catalogs) {
    const auto time = [&](const char* what) {
      return reporter.median(what + ("/" + catalog.name));
    };
    std::printf("%-8s %9.1f %9.1f %9.1f %9.1f %9.1f %9.1f %9.1f | %6.2f %6.2f %6.2f | %9.0f %9ld\n",
                catalog.name.c_str(), time("bare_read"), time("new_text"),
                time("one_more_character"), time("down_on_last"), time("sqlite"),
                time("sorted_memory"), time("new_text_brand"), time("new_text") / time("bare_read"),
                time("new_text") / time("sqlite"), time("new_text_brand") / time("sqlite_brand"),
                catalog.bytesPerLookup, catalog.memoryKiB);
  }
}

}  // namespace keyscout::bench
