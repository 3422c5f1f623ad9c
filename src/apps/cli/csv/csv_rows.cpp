#include "apps/cli/csv/csv_rows.h"

#include <algorithm>
#include <array>
#include <new>

#include "apps/cli/files/failure_sentence.h"
#include "apps/cli/files/path_text.h"
#include "base/text.h"

namespace keyscout {
namespace {

// A quotation mark too many makes one field of all that follows it.
constexpr std::size_t maxRowSize = std::size_t{1024} * 1024;

InputFile openList(const std::filesystem::path& path) try {
  return InputFile{path};
} catch (const std::exception& failure) {
  throw PackError(pathText(path) + ": The list cannot be opened: " + sentenceOf(failure),
                  ExitStatus::unusable);
}

char usualDelimiterOf(std::string_view line) {
  std::array<std::pair<std::size_t, char>, 3> counts{{{0, ','}, {0, ';'}, {0, '\t'}}};
  bool isInQuotes = false;
  for (const char byte : line) {
    if (byte == '"') isInQuotes = !isInQuotes;
    for (auto& [count, delimiter] : counts)
      if (!isInQuotes && byte == delimiter) ++count;
  }
  return std::ranges::max_element(counts, {}, [](const auto& entry) { return entry.first; })
      ->second;
}

}  // namespace

CsvRows::CsvRows(const std::filesystem::path& path, std::optional<char> delimiter)
    : origin_(path), file_(openList(path)), delimiter_(delimiter) {
  if (csv_init(&parser_, CSV_STRICT | CSV_STRICT_FINI) != 0) throw std::bad_alloc{};
}

bool CsvRows::next() {
  row_.clear();
  rowsEnded_ = 0;
  rowSize_ = 0;
  while (rowsEnded_ == 0) {
    if (file_.atEnd()) {
      finish();
      return rowsEnded_ != 0;
    }
    parseLine();
  }
  return true;
}

void CsvRows::parseLine() {
  std::string_view line = readLine();
  if (line_ == 1) {
    line = withoutMark(line);
    csv_set_delim(&parser_,
                  static_cast<unsigned char>(delimiter_.value_or(usualDelimiterOf(line))));
  }
  if (rowSize_ == 0) rowLine_ = line_;
  // What a blank line has before a row is no part of it.
  if (rowSize_ != 0 || !trimmed(line).empty()) rowSize_ += line.size() + 1;
  if (rowSize_ > maxRowSize)
    refuse(rowLine_, "The row that begins here has no end; look for a quotation mark too many.");
  parse(line);
  parse("\n");
  if (rowsEnded_ > 1)
    refuse(line_, "The lines of the file end with CR alone; end them with CR LF or LF.");
}

void CsvRows::finish() {
  if (csv_fini(&parser_, takeField, endRow, this) != 0)
    refuse(rowLine_, "A quotation mark in the row that begins here is not closed.");
  if (failure_) std::rethrow_exception(failure_);
}

std::string_view CsvRows::readLine() try {
  ++line_;
  return file_.readLine();
} catch (const std::exception& failure) {
  refuse(line_, "The list cannot be read on from here: " + sentenceOf(failure) + '.');
}

std::string_view CsvRows::withoutMark(std::string_view firstLine) const {
  if (firstLine.find('\0') != firstLine.npos || firstLine.starts_with("\xFF\xFE") ||
      firstLine.starts_with("\xFE\xFF"))
    refuse(1, "The file is UTF-16; save it as UTF-8.");
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  return firstLine.starts_with(mark) ? firstLine.substr(mark.size()) : firstLine;
}

void CsvRows::parse(std::string_view bytes) {
  const std::size_t parsed =
      csv_parse(&parser_, bytes.data(), bytes.size(), takeField, endRow, this);
  if (failure_) std::rethrow_exception(failure_);
  if (parsed == bytes.size()) return;
  if (csv_error(&parser_) != CSV_EPARSE) throw std::bad_alloc{};
  refuse(line_, "Character " + std::to_string(parsed + 1) +
                    " of the line is a quotation mark out of place; put the whole field in "
                    "quotation marks and double those in it.");
}

void CsvRows::refuse(std::uint64_t line, const std::string& sentence) const {
  throw origin_.refusal(line, sentence);
}

void CsvRows::takeField(void* bytes, std::size_t size, void* rows) noexcept {
  auto& self = *static_cast<CsvRows*>(rows);
  try {
    if (self.rowsEnded_ == 0) self.row_.emplace_back(static_cast<const char*>(bytes), size);
  } catch (const std::bad_alloc&) {
    self.failure_ = std::current_exception();
  }
}

void CsvRows::endRow(int, void* rows) noexcept { ++static_cast<CsvRows*>(rows)->rowsEnded_; }

}  // namespace keyscout
