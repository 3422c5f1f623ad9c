#include "apps/cli/packing/pack_catalog.h"

#include <algorithm>
#include <exception>
#include <string>
#include <system_error>

#include "apps/cli/packing/brand_index_writer.h"
#include "apps/cli/packing/brand_writer.h"
#include "apps/cli/packing/control_file.h"
#include "apps/cli/packing/directory_files.h"
#include "apps/cli/packing/download_reader.h"
#include "apps/cli/packing/duplicate_check.h"
#include "apps/cli/packing/line_payload.h"
#include "apps/cli/packing/staging_folder.h"
#include "apps/cli/packing/table_writer.h"
#include "apps/cli/sorting/external_sorter.h"
#include "apps/cli/sorting/number_order.h"
#include "base/code_page.h"
#include "shared/data_format/record_columns.h"
#include "shared/keyscout_module.h"

namespace keyscout {
namespace {

constexpr std::uint64_t maxTables = keyscoutModule::catalogTableCapacity;
constexpr std::uint64_t usualLinesPerTable = 200;
constexpr std::uint64_t recordsPerReport = 1024;

std::uint64_t dividedRoundingUp(std::uint64_t number, std::uint64_t divisor) {
  return number / divisor + (number % divisor != 0 ? 1 : 0);
}

/// How many lines of `records` go into each table.
std::uint64_t linesPerTable(std::uint64_t records, std::optional<std::uint64_t> wanted) {
  const std::uint64_t minimum = dividedRoundingUp(records, maxTables);
  if (wanted && *wanted < minimum)
    throw PackError(std::to_string(records) + " records make more than " +
                        std::to_string(maxTables) + " tables of " + std::to_string(*wanted) +
                        " lines; put " + std::to_string(minimum) + " or more lines into a table.",
                    ExitStatus::unusable);
  return wanted.value_or(std::max(usualLinesPerTable, minimum));
}

/// The way of one download through sorting into the files of a staging folder.
class Packing {
 public:
  Packing(const PackOptions& options, const PackProgress& progress, DownloadReader& download,
          const StagingFolder& staging)
      : options_(options),
        progress_(progress),
        download_(download),
        staging_(staging),
        byNumber_(staging.scratch(), "number", options.memory / 5 * 4),
        duplicates_(options.download, order_, staging.scratch(), options.memory / 5) {}

  PackSummary run() {
    readDownload();
    summary_.linesPerTable = linesPerTable(summary_.records, options_.linesPerTable);
    writeTables();
    return summary_;
  }

 private:
  void readDownload() {
    BrandWriter brands{staging_.catalog(), order_};
    download_.readHeader();
    DownloadRecord record;
    std::string key;
    std::string payload;
    while (download_.readRecord(record)) {
      order_.toKey(record.number, key);
      setLinePayload(payload, record.line);
      payload += record.index;
      payload += record.brand;
      byNumber_.add({key, payload});
      duplicates_.collect({key, record.line});
      brands.add(record.brand);
      if (++summary_.records % recordsPerReport == 0)
        report("Reading", download_.bytesRead(), download_.size());
    }
    if (summary_.records == 0) throw download_.refusal("The download holds no records.");
    brands.close();
    summary_.brands = brands.count();
  }

  void writeTables() {
    TableWriter tables{staging_.catalog(), options_.indexName, summary_.linesPerTable};
    BrandIndexWriter brandIndex;
    std::string number;
    std::uint64_t written = 0;
    while (const SortRecord* record = byNumber_.next()) {
      const LinePayload payload{record->payload};
      duplicates_.check({record->key, payload.line});
      order_.toText(record->key, number);
      constexpr std::size_t indexWidth = RecordColumns::index.width;
      const std::string_view brand = payload.text.substr(indexWidth);
      tables.add({payload.text.substr(0, indexWidth), number, brand});
      brandIndex.add(brand, written / summary_.linesPerTable);
      if (++written % recordsPerReport == 0) report("Writing", written, summary_.records);
    }
    summary_.tables = tables.finish();
    brandIndex.write(staging_.catalog(), options_.indexName, summary_.tables);
  }

  void report(std::string_view step, std::uint64_t done, std::uint64_t total) const {
    if (progress_) progress_(step, done, total);
  }

  const PackOptions& options_;
  const PackProgress& progress_;
  DownloadReader& download_;
  const StagingFolder& staging_;
  const NumberOrder order_{windows1252()};
  ExternalSorter byNumber_;
  DuplicateCheck duplicates_;
  PackSummary summary_;
};

bool isSameFile(const std::filesystem::path& a, const std::filesystem::path& b) {
  std::error_code noSuchFile;
  return std::filesystem::equivalent(a, b, noSuchFile);
}

void removeStaleTables(const std::filesystem::path& directory, std::uint64_t tables) {
  for (std::uint64_t i = tables; i < maxTables; ++i)
    std::filesystem::remove(directory / tableFile(i));
}

PackSummary packInto(const std::filesystem::path& directory, const PackOptions& options,
                     const PackProgress& progress, DownloadReader& download) {
  const StagingFolder staging{directory};
  PackSummary summary = Packing{options, progress, download, staging}.run();
  summary.indexName = options.indexName;
  summary.downloadName = options.download.filename();
  if (!isSameFile(options.download, directory / summary.downloadName))
    std::filesystem::copy_file(options.download, staging.catalog() / summary.downloadName);
  staging.install();
  removeStaleTables(directory, summary.tables);
  return summary;
}

}  // namespace

PackSummary packCatalog(const PackOptions& options, const PackProgress& progress) try {
  checkNames(options.download, options.indexName);
  if (options.linesPerTable == 0)
    throw PackError("A table needs at least 1 line.", ExitStatus::unusable);
  DownloadReader download{options.download};

  std::filesystem::create_directories(options.directory);
  ControlFile control{options.directory};
  PackSummary summary = packInto(options.directory, options, progress, download);
  control.setReady();
  return summary;
} catch (const PackError&) {
  throw;
} catch (const std::exception& failure) {
  throw PackError(std::string{"The catalog could not be packed: "} + failure.what(),
                  ExitStatus::unusable);
}

}  // namespace keyscout
