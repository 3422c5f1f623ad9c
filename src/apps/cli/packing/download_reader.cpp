#include "apps/cli/packing/download_reader.h"

#include <string>
#include <system_error>

#include "apps/cli/files/path_text.h"
#include "base/code_page.h"
#include "base/error.h"
#include "base/numbers.h"
#include "base/utf8.h"
#include "shared/data_format/catalog_line.h"
#include "shared/data_format/record_columns.h"

namespace keyscout {
namespace {

constexpr std::size_t minRecord = CatalogLine::minLength;
constexpr std::size_t maxRecord = RecordColumns::brand.end() - 1;

InputFile openDownload(const std::filesystem::path& path) try {
  return InputFile{path};
} catch (const std::runtime_error& failure) {
  throw PackError(pathText(path) + ": The download cannot be opened: " + failure.what(),
                  ExitStatus::unusable);
}

std::uint64_t sizeOf(const std::filesystem::path& path) {
  std::error_code failure;
  const auto size = std::filesystem::file_size(path, failure);
  return failure ? 0 : size;
}

std::size_t lengthWithoutBlanksBehind(std::string_view line) {
  return line.find_last_not_of(' ') + 1;
}

}  // namespace

DownloadReader::DownloadReader(const std::filesystem::path& path)
    : path_(path), file_(openDownload(path)), size_(sizeOf(path)) {}

void DownloadReader::readHeader() {
  const std::string_view header = file_.atEnd() ? std::string_view{} : readLine();
  line_ = 1;
  if (windows1252().decode(header) != downloadHeader)
    throw refusal("The first line must be exactly " + toUtf8(downloadHeader) +
                  "; download the catalog in this format.");
}

bool DownloadReader::readRecord(DownloadRecord& record) {
  while (!file_.atEnd()) {
    const std::string_view line = readLine();
    const std::size_t length = lengthWithoutBlanksBehind(line);
    if (length == 0) continue;
    if (line.size() < minRecord)
      throw refusal("The record has " + std::to_string(line.size()) + " columns; fill it up with " +
                    "blanks to at least " + std::to_string(minRecord) + '.');
    if (length > maxRecord)
      throw refusal("The record has " + std::to_string(length) + " columns; shorten it to " +
                    std::to_string(maxRecord) + " at most.");

    const CatalogLine fields{line};
    checkIndex(fields.index());
    record = {line_, columns(line, RecordColumns::index), fields.catalogNumber(), fields.brand()};
    if (record.number.empty())
      throw refusal(
          "The catalog number in columns 11 to 70 is blank; give the record one or remove "
          "the line.");
    return true;
  }
  return false;
}

std::string_view DownloadReader::readLine() try {
  ++line_;
  const std::string_view line = file_.readLine();
  bytesRead_ += line.size() + 2;
  return line;
} catch (const std::runtime_error& failure) {
  throw refusal(std::string{"The download cannot be read on from here: "} + failure.what() + '.');
}

void DownloadReader::checkIndex(std::string_view index) try {
  windows1252().decode(index, index_);
  parseInt32(index_);
} catch (const Error&) {
  throw refusal("The index \"" + toUtf8(index_) +
                "\" in columns 1 to 10 must be a decimal number of 32 bits; correct it.");
}

}  // namespace keyscout
