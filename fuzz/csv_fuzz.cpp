// A CSV list is refused, or read into rows that, written in quotation marks, are read the same.

#include <optional>

#include "apps/cli/csv/csv_rows.h"
#include "apps/cli/packing/pack_error.h"
#include "fuzz_input.h"
#include "written_folder.h"

using namespace keyscout;

namespace {

using Rows = std::vector<std::vector<std::string>>;

/// Nothing where the list is refused.
std::optional<Rows> readRows(std::string_view bytes, std::optional<char> delimiter) try {
  const fuzz::WrittenFolder folder;
  folder.write("list.csv", bytes);
  CsvRows list{folder.path() / "list.csv", delimiter};
  Rows rows;
  while (list.next()) rows.push_back(list.row());
  return rows;
} catch (const PackError&) {
  return std::nullopt;
}

std::string inQuotationMarks(const Rows& rows, char delimiter) {
  std::string bytes;
  for (const std::vector<std::string>& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (i != 0) bytes += delimiter;
      bytes += '"';
      for (const char character : row[i]) {
        if (character == '"') bytes += '"';
        if (character == '\n') bytes += '\r';  // a CR that stands before it is part of the field
        bytes += character;
      }
      bytes += '"';
    }
    bytes += "\r\n";
  }
  return bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::FuzzInput input{data, size};
  static constexpr std::optional<char> delimiters[] = {std::nullopt, ',', ';', '\t'};
  const std::optional<char> delimiter = delimiters[input.below(std::size(delimiters))];
  // Where one stands in the first line the file is refused as UTF-16; what is written moves it
  // there.
  if (input.rest().find('\0') != std::string_view::npos) return 0;
  const auto rows = readRows(input.rest(), delimiter);
  if (rows) fuzz::require(readRows(inQuotationMarks(*rows, ';'), ';') == rows, "the rows");
  return 0;
}
