#include "apps/cli/packing/download_reader.h"

#include <stdexcept>
#include <string>
#include <utility>

#include "apps/cli/directory/record_bytes.h"
#include "apps/cli/directory/wrong_header.h"
#include "apps/cli/files/failure_sentence.h"
#include "apps/cli/files/path_text.h"
#include "apps/cli/sentences/counted.h"
#include "apps/cli/sentences/in_quotes.h"
#include "base/error.h"
#include "base/numbers.h"
#include "base/utf8.h"
#include "platform/local/native_code_page.h"
#include "shared/data_format/catalog_line.h"
#include "shared/data_format/record_columns.h"

namespace keyscout {
namespace {

constexpr std::size_t minRecord = CatalogLine::minLength;
constexpr std::size_t maxRecord = RecordColumns::brand.end() - 1;

InputFile openDownload(const std::filesystem::path& path) try {
  return InputFile{path};
} catch (const std::exception& failure) {
  throw PackError(pathText(path) + ": The download cannot be opened: " + sentenceOf(failure),
                  ExitStatus::unusable);
}

std::size_t lengthWithoutBlanksBehind(std::string_view line) {
  return line.find_last_not_of(' ') + 1;
}

}  // namespace

DownloadReader::DownloadReader(const std::filesystem::path& path, LineOrigin origin,
                               bool acceptsUtf8)
    : file_(openDownload(path)), origin_(std::move(origin)), acceptsUtf8_(acceptsUtf8) {}

void DownloadReader::keepCopy(const std::filesystem::path& path) {
  copy_.emplace(path);
  file_.copyTo(*copy_);
}

void DownloadReader::closeCopy() {
  if (copy_) copy_->close();
}

void DownloadReader::readHeader() {
  const std::string_view header = file_.atEnd() ? std::string_view{} : readLine();
  line_ = 1;
  if (nativeCodePage().decode(header) != downloadHeader)
    throw refusal("The first line must be exactly " + toUtf8(downloadHeader) + ", but " +
                  wrongHeader(header) + '.');
}

bool DownloadReader::readRecord(DownloadRecord& record) {
  while (!file_.atEnd()) {
    const std::string_view line = readLine();
    const std::size_t length = lengthWithoutBlanksBehind(line);
    if (length == 0) continue;
    checkBytes(line);
    if (line.size() < minRecord)
      throw refusal("The record has " + counted(line.size(), "column") + "; fill it up with " +
                    "blanks to at least " + std::to_string(minRecord) + '.');
    if (length > maxRecord)
      throw refusal("The record has " + std::to_string(length) + " columns; shorten it to " +
                    std::to_string(maxRecord) + " at most.");

    const CatalogLine fields{line};
    checkIndex(fields.index());
    record = {origin_.lineOf(line_), columns(line, RecordColumns::index), fields.catalogNumber(),
              fields.brand()};
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
  return file_.readLine();
} catch (const std::exception& failure) {
  throw refusal("The download cannot be read on from here: " + sentenceOf(failure) + '.');
}

void DownloadReader::checkBytes(std::string_view line) const {
  if (!acceptsUtf8_ && isUtf8BeyondAscii(line))
    throw refusal("The line is UTF-8, but a download is " + nameOfCodePage() +
                  "; convert it, or give --code-page " + std::to_string(nativeCodePageNumber()) +
                  " where its bytes are meant so.");
  if (const auto strange = strangeCharacterIn(line))
    throw refusal("In this line " + *strange + "; correct it.");
}

void DownloadReader::checkIndex(std::string_view index) try {
  nativeCodePage().decode(index, index_);
  parseInt32(index_);
} catch (const Error&) {
  throw refusal("The index " + inQuotes(index_) +
                " in columns 1 to 10 must be a decimal number of 32 bits; correct it.");
}

}  // namespace keyscout
