#include "apps/cli/csv/csv_list.h"

#include <algorithm>
#include <stdexcept>

#include "apps/cli/csv/first_numbers.h"
#include "apps/cli/directory/record_bytes.h"
#include "apps/cli/files/output_file.h"
#include "apps/cli/sentences/counted.h"
#include "apps/cli/sentences/in_quotes.h"
#include "base/error.h"
#include "base/numbers.h"
#include "base/utf8.h"
#include "platform/local/native_code_page.h"
#include "shared/data_format/record_columns.h"

namespace keyscout {
namespace {

constexpr std::uint64_t rowsPerReport = 1024;

FieldDecoder decoderOf(const std::string& codePage) try {
  return FieldDecoder{codePage};
} catch (const std::invalid_argument& failure) {
  throw PackError(failure.what(), ExitStatus::unusable);
}

std::string padded(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

/// Writes the lines of a download one after the other.
class DownloadWriter {
 public:
  explicit DownloadWriter(const std::filesystem::path& path) : file_(path) {
    writeLine(toUtf8(downloadHeader));
  }
  /// Writes a record that comes from a line of the list.
  void write(const std::string& line, std::uint64_t original, LineOrigin& origin) {
    writeLine(line);
    origin.add(lines_, original);
  }
  void close() { file_.close(); }

 private:
  void writeLine(const std::string& line) {
    file_.write(line);
    file_.write("\r\n");
    ++lines_;
  }

  OutputFile file_;
  std::uint64_t lines_ = 0;
};

/// Copies a download but for the records that are `left out`, counted from 0.
MadeDownload withoutRecords(const std::filesystem::path& from, const LineOrigin& origin,
                            const std::filesystem::path& to, const std::vector<bool>& leftOut,
                            MadeDownload made) {
  InputFile all{from};
  DownloadWriter download{to};
  all.readLine();
  for (std::uint64_t record = 0; !all.atEnd(); ++record) {
    const std::string line{all.readLine()};
    constexpr std::uint64_t firstRecordLine = 2;
    if (leftOut[record])
      ++made.dropped;
    else
      download.write(line, origin.lineOf(record + firstRecordLine), made.origin);
  }
  download.close();
  return made;
}

}  // namespace

std::unique_ptr<DownloadMaker> openCsv(const CsvOptions& options) {
  return std::make_unique<CsvList>(options);
}

CsvList::CsvList(const CsvOptions& options)
    : options_(options),
      rows_(options.file, options.delimiter),
      decoder_(decoderOf(options.codePage)) {}

MadeDownload CsvList::make(const std::filesystem::path& file, const std::filesystem::path& scratch,
                           const PackProgress& progress) {
  findColumns();
  const std::filesystem::path all = options_.keepsFirst ? scratch / "all.txt" : file;
  DownloadWriter download{all};
  MadeDownload made{rows_.origin()};
  std::optional<FirstNumbers> numbers;
  if (options_.keepsFirst) numbers.emplace(scratch);
  Record record;
  while (nextRecord(record)) {
    download.write(record.index + padded(record.number, RecordColumns::number.width) +
                       padded(record.brand, RecordColumns::brand.width),
                   rows_.line(), made.origin);
    if (numbers) numbers->add(record.number);
    if (records_ % rowsPerReport == 0 && progress)
      progress("Reading CSV", rows_.bytesRead(), rows_.size());
  }
  download.close();
  if (!numbers) return made;
  return withoutRecords(all, made.origin, file, numbers->repeated(), MadeDownload{rows_.origin()});
}

void CsvList::findColumns() try {
  std::vector<std::string> names;
  if (!options_.hasNoHeader) {
    if (!rows_.next()) throw std::invalid_argument("The list is empty.");
    for (const std::string& name : rows_.row())
      names.push_back(toUtf8(trimmed(decoder_.decode(name))));
  }
  number_ = columnCalled(options_.number, names);
  brand_ = columnCalled(options_.brand, names);
  if (!options_.index.empty()) index_ = columnCalled(options_.index, names);
} catch (const std::invalid_argument& failure) {
  throw rows_.origin().refusal(1, failure.what());
}

bool CsvList::nextRecord(Record& record) {
  while (rows_.next()) {
    if (isBlankRow()) continue;
    ++records_;
    record.number = fieldOf(number_, RecordColumns::number.width, options_.inUpperCase);
    if (record.number.empty()) refuse(number_, "the catalog number is blank");
    record.brand = fieldOf(brand_, RecordColumns::brand.width);
    record.index = padded(indexOf(records_), RecordColumns::index.width);
    return true;
  }
  return false;
}

/// Spreadsheets write the rows behind a list's end as well, with nothing in them.
bool CsvList::isBlankRow() const {
  return std::ranges::all_of(rows_.row(),
                             [](std::string_view field) { return trimmed(field).empty(); });
}

std::string CsvList::textOf(const CsvColumn& column, bool inUpperCase) const try {
  const auto& row = rows_.row();
  if (column.position >= row.size())
    refuse(column, "the row ends before it, with " + counted(row.size(), "column"));
  const String decoded = decoder_.decode(row[column.position]);
  const StringView text = trimmed(decoded);
  return catalogBytes(inUpperCase ? inCapitals(text) : String{text});
} catch (const std::invalid_argument& failure) {
  refuse(column, failure.what());
}

std::string CsvList::fieldOf(const CsvColumn& column, std::size_t width, bool inUpperCase) const {
  std::string bytes = textOf(column, inUpperCase);
  if (bytes.size() > width)
    refuse(column, inQuotes(bytes, nativeCodePage()) + " has " +
                       counted(bytes.size(), "character") + "; it may have " +
                       std::to_string(width));
  if (const auto strange = strangeCharacterIn(bytes)) refuse(column, *strange);
  return bytes;
}

std::string CsvList::indexOf(std::uint64_t madeUp) const {
  if (!index_) return std::to_string(madeUp);
  std::string bytes = fieldOf(*index_, RecordColumns::index.width);
  try {
    parseInt32(nativeCodePage().decode(bytes));
  } catch (const Error&) {
    refuse(*index_, "the index " + inQuotes(bytes, nativeCodePage()) +
                        " must be a decimal number of 32 bits");
  }
  return bytes;
}

void CsvList::refuse(const CsvColumn& column, const std::string& sentence) const {
  throw rows_.origin().refusal(rows_.line(), column.text + ": " + sentence);
}

}  // namespace keyscout
