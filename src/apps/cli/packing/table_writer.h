#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "apps/cli/files/output_file.h"

namespace keyscout {

/// The parts of a catalog entry in the bytes of its code page.
struct TableRow {
  std::string_view index;   // 10 columns
  std::string_view number;  // trimmed, as is the brand
  std::string_view brand;
};

/// Writes rows that come in order into tables of equal length and the index that leads to them.
class TableWriter {
 public:
  /// The tables and the index, named `indexName`, are made in `folder`.
  TableWriter(std::filesystem::path folder, const std::filesystem::path& indexName,
              std::uint64_t rowsPerTable);

  void add(const TableRow& row);
  /// Ends the last table and the index; how many tables there are.
  std::uint64_t finish();

 private:
  void beginTable(const TableRow& row);
  void endTable();

  std::filesystem::path folder_;
  std::uint64_t rowsPerTable_;
  OutputFile index_;
  std::optional<OutputFile> table_;
  std::uint64_t tables_ = 0;
  std::uint64_t rows_ = 0;  // in the current table
  std::string indexLine_;   // the current table's first half of a line
  std::string lastEntry_;   // the latest row, as the index has it
  std::string line_;
};

}  // namespace keyscout
