// `pack` against a plain sort: what it does not refuse is all there, in order, and sound.

#include <algorithm>

#include "apps/cli/check/check_catalog.h"
#include "apps/cli/packing/pack_catalog.h"
#include "base/code_page.h"
#include "base/utf8.h"
#include "fuzz_input.h"
#include "platform/local/native_files.h"
#include "written_folder.h"

using namespace keyscout;

namespace {

constexpr std::string_view header = "FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]";

struct Record {
  String number;
  std::string brand;
  std::string index;

  bool operator==(const Record&) const = default;
};

/// The records of the lines behind the first `skipped`.
std::vector<Record> recordsOf(std::string_view text, std::size_t skipped) {
  std::vector<Record> records;
  for (std::string line : fuzz::linesOf(text)) {
    if (skipped != 0) {
      --skipped;
      continue;
    }
    if (line.find_first_not_of(' ') == line.npos) continue;
    line.resize(std::max<std::size_t>(line.size(), 120), ' ');
    const auto field = [&](std::size_t first, std::size_t width) {
      return String{trimmed(windows1252().decode(std::string_view{line}.substr(first, width)))};
    };
    records.push_back({field(10, 60), toUtf8(field(70, 50)), line.substr(0, 10)});
  }
  return records;
}

std::vector<Record> sorted(std::vector<Record> records) {
  std::ranges::stable_sort(records, {}, &Record::number);
  return records;
}

std::vector<Record> recordsOfTables(const fuzz::WrittenFolder& folder, std::uint64_t tables) {
  std::vector<Record> records;
  for (std::uint64_t table = 0; table < tables; ++table)
    for (const Record& record : recordsOf(folder.read(std::to_string(table) + ".txt"), 0))
      records.push_back(record);
  return records;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::FuzzInput input{data, size};
  const fuzz::WrittenFolder source;
  const fuzz::WrittenFolder packed;
  PackOptions options;
  options.download = source.path() / "download.txt";
  options.directory = packed.path();
  options.linesPerTable = 1 + input.below(5);
  std::string download{input.rest()};
  // Most inputs would not get past the header, which has a target of its own.
  if (!download.starts_with("FORMAT")) download = std::string{header} + "\r\n" + download;
  source.write("download.txt", download);

  PackSummary summary;
  try {
    summary = packCatalog(options);
  } catch (const PackError&) {
    fuzz::require(!packed.read("catcontrol.txt").starts_with("READY"), "a refused download");
    return 0;
  }
  fuzz::require(recordsOfTables(packed, summary.tables) == sorted(recordsOf(download, 1)),
                "the tables");
  NativeFiles files;
  const DataDirectory directory{packed.path()};
  checkCatalog(files, directory, [](const Finding& finding) {
    fuzz::require(finding.severity == Severity::warning, finding.file + ": " + finding.sentence);
  });
  return 0;
}
