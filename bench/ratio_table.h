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

  /// Median time of one iteration of benchmark `name`, in microseconds; 0 where it did not run.
  double median(const std::string& name) const {
    const auto found = medians_.find(name);
    return found == medians_.end() ? 0 : found->second;
  }

 private:
  std::map<std::string, double> medians_;
};

/// What one answer reads, on the average.
struct ReadingFigures {
  std::string question;
  double calls;   // of the system, that read
  double files;   // opened
  double stamps;  // files looked at and passed over
  double bytes;
};

/// What one answer takes with all files on the disk, in microseconds.
struct ColdFigures {
  std::string question;
  double own;
  double sqlite;
};

struct CatalogFigures {
  std::string name;
  std::vector<ReadingFigures> reading;
  std::vector<ColdFigures> cold;
  long memoryKiB;
};

/// Prints a line for each question and catalog, then the ratios between catalogs.
void printFigures(const MedianReporter& reporter, const std::vector<CatalogFigures>& catalogs);

}  // namespace keyscout::bench
