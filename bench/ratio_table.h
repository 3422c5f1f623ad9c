#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace keyscout::bench {

/// Keeps the medians of the repetitions beside printing them.
class MedianReporter final : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override;

  /// Median time of one iteration of benchmark `name`, in microseconds.
  double median(const std::string& name) const { return medians_.at(name); }

 private:
  std::map<std::string, double> medians_;
};

/// What a catalog's lookups read and need, beside their times.
struct CatalogFigures {
  std::string name;
  double bytesPerLookup;
  long memoryKiB;
};

/// Prints the ratios that count, a line for each catalog.
void printRatios(const MedianReporter& reporter, const std::vector<CatalogFigures>& catalogs);

}  // namespace keyscout::bench
