#pragma once

#include <csv.h>

#include <cstdint>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/cli/files/input_file.h"
#include "apps/cli/packing/line_origin.h"

namespace keyscout {

/// Reads a CSV file row by row, by the rules that spreadsheets keep: a field that holds a
/// delimiter, a quotation mark or a line end stands in quotation marks, and a quotation mark in it
/// is doubled. Blank lines are passed over. Everything fails with `PackError`.
class CsvRows {
 public:
  /// Opens the file. Without a `delimiter` it is the one of comma, semicolon and tab that the first
  /// line has most of.
  CsvRows(const std::filesystem::path& path, std::optional<char> delimiter);
  ~CsvRows() { csv_free(&parser_); }
  CsvRows(const CsvRows&) = delete;
  CsvRows& operator=(const CsvRows&) = delete;

  /// Goes to the first or next row; false at the end of the file.
  bool next();
  /// The row gone to, in the bytes of the file.
  const std::vector<std::string>& row() const { return row_; }
  /// The line on which it begins.
  std::uint64_t line() const { return rowLine_; }

  std::uint64_t bytesRead() const { return file_.bytesRead(); }
  std::uint64_t size() const { return file_.size(); }
  const LineOrigin& origin() const { return origin_; }

 private:
  static void takeField(void* bytes, std::size_t size, void* rows) noexcept;
  static void endRow(int terminator, void* rows) noexcept;

  void parseLine();
  void finish();
  std::string_view readLine();
  std::string_view withoutMark(std::string_view firstLine) const;
  void parse(std::string_view bytes);
  [[noreturn]] void refuse(std::uint64_t line, const std::string& sentence) const;

  LineOrigin origin_;
  InputFile file_;
  std::optional<char> delimiter_;
  csv_parser parser_;
  std::uint64_t line_ = 0;
  std::uint64_t rowLine_ = 0;
  std::size_t rowSize_ = 0;
  std::vector<std::string> row_;
  int rowsEnded_ = 0;
  std::exception_ptr
      failure_;  // of a callback, which must not fail into a library of another language
};

}  // namespace keyscout
