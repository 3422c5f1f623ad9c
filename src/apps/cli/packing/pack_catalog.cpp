#include "apps/cli/packing/pack_catalog.h"

#include <algorithm>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

#include "apps/cli/files/failure_sentence.h"
#include "apps/cli/files/temporary_folder.h"
#include "apps/cli/packing/brand_index_writer.h"
#include "apps/cli/packing/brand_writer.h"
#include "apps/cli/packing/directory_files.h"
#include "apps/cli/packing/directory_hold.h"
#include "apps/cli/packing/download_reader.h"
#include "apps/cli/packing/duplicate_check.h"
#include "apps/cli/packing/former_catalog.h"
#include "apps/cli/packing/line_payload.h"
#include "apps/cli/packing/publication.h"
#include "apps/cli/packing/staging_folder.h"
#include "apps/cli/packing/table_writer.h"
#include "apps/cli/sorting/external_sorter.h"
#include "apps/cli/sorting/number_order.h"
#include "platform/local/native_code_page.h"
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
        duplicates_(order_, staging.scratch(), options.memory / 5) {}

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
    if (summary_.records == 0) throw download_.refusal("There are no records.");
    download_.closeCopy();
    brands.close();
    summary_.brands = brands.count();
  }

  void writeTables() {
    TableWriter tables{staging_.catalog(), options_.indexName, summary_.linesPerTable};
    BrandIndexWriter brandIndex;
    DuplicateList found{order_, download_.origin()};
    std::string number;
    std::uint64_t written = 0;
    while (const SortRecord* record = byNumber_.next()) {
      const LinePayload payload{record->payload};
      duplicates_.check({record->key, payload.line}, found);
      order_.toText(record->key, number);
      constexpr std::size_t indexWidth = RecordColumns::index.width;
      const std::string_view brand = payload.text.substr(indexWidth);
      tables.add({payload.text.substr(0, indexWidth), number, brand});
      brandIndex.add(brand, written / summary_.linesPerTable);
      if (++written % recordsPerReport == 0) report("Writing", written, summary_.records);
    }
    found.refuse();
    summary_.tables = tables.finish();
    brandIndex.write(staging_.catalog(), options_.indexName, summary_.tables);
    report("Writing", written, summary_.records);
  }

  void report(std::string_view step, std::uint64_t done, std::uint64_t total) const {
    if (progress_) progress_(step, done, total);
  }

  const PackOptions& options_;
  const PackProgress& progress_;
  DownloadReader& download_;
  const StagingFolder& staging_;
  const NumberOrder order_{nativeCodePage()};
  ExternalSorter byNumber_;
  DuplicateCheck duplicates_;
  PackSummary summary_;
};

/// The options with every name in its place.
PackOptions completed(PackOptions options) {
  if (options.downloadName.empty()) {
    std::error_code unknown;
    const bool hasName =
        !options.maker && std::filesystem::is_regular_file(options.download, unknown);
    options.downloadName = hasName ? options.download.filename() : usualDownload;
  }
  checkNames(options.downloadName, options.indexName);
  if (options.linesPerTable == 0)
    throw PackError("A table needs at least 1 line.", ExitStatus::unusable);
  return options;
}

/// Opens the download where it need not be made first.
std::unique_ptr<DownloadReader> opened(const PackOptions& options) {
  if (options.maker) return nullptr;
  return std::make_unique<DownloadReader>(options.download, LineOrigin{options.download},
                                          options.acceptsUtf8);
}

/// Makes all files of the new catalog but the control file.
PackSummary prepare(const PackOptions& options, const PackProgress& progress,
                    std::unique_ptr<DownloadReader> download, const StagingFolder& staging) {
  const std::filesystem::path file = staging.catalog() / options.downloadName;
  std::uint64_t dropped = 0;
  if (download) {
    download->keepCopy(file);
  } else {
    MadeDownload made = options.maker->make(file, staging.scratch(), progress);
    dropped = made.dropped;
    download = std::make_unique<DownloadReader>(file, std::move(made.origin), true);
  }
  PackSummary summary = Packing{options, progress, *download, staging}.run();
  summary.dropped = dropped;
  summary.indexName = options.indexName;
  summary.downloadName = options.downloadName;
  return summary;
}

FormerCatalog::Names namesOf(const StagingFolder& staging) {
  FormerCatalog::Names names{DirectoryFiles::control};
  for (const auto& entry : std::filesystem::directory_iterator{staging.catalog()})
    names.insert(entry.path().filename());
  return names;
}

PackSummary pack(const PackOptions& options, const PackProgress& progress) {
  auto download = opened(options);
  const DirectoryHold hold{options.directory};
  finishPublication(options.directory);
  const FormerCatalog former{options.directory, options.indexName, options.download, options.force};

  StagingFolder staging{options.directory / stagingFolder};
  PackSummary summary = prepare(options, progress, std::move(download), staging);
  summary.replacesCatalog = former.isThere();
  const FormerCatalog::Names names = namesOf(staging);
  former.makeWayFor(names);
  publish(staging, options.directory, former.without(names));
  return summary;
}

/// The same without the directory; it would fail where a pack would.
PackSummary packNowhere(const PackOptions& options, const PackProgress& progress) {
  auto download = opened(options);
  const FormerCatalog former{options.directory, options.indexName, options.download, options.force};
  const TemporaryFolder folder{"keyscout-pack"};
  const StagingFolder staging{folder.path() / stagingFolder};
  PackSummary summary = prepare(options, progress, std::move(download), staging);
  summary.replacesCatalog = former.isThere();
  former.makeWayFor(namesOf(staging));
  return summary;
}

PackError failureOf(const std::exception& failure, const PackOptions& options) {
  std::string sentence = "The catalog could not be packed: " + sentenceOf(failure);
  if (!options.dryRun && isHalfPublished(options.directory))
    sentence += ". It is in process until you pack again.";
  return {sentence, ExitStatus::unusable};
}

}  // namespace

PackSummary packCatalog(const PackOptions& given, const PackProgress& progress) try {
  const PackOptions options = completed(given);
  return options.dryRun ? packNowhere(options, progress) : pack(options, progress);
} catch (const PackError&) {
  throw;
} catch (const std::runtime_error& failure) {
  throw failureOf(failure, given);
} catch (const std::bad_alloc& failure) {
  throw failureOf(failure, given);
}

}  // namespace keyscout
