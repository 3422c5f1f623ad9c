#include "apps/cli/packing/table_writer.h"

#include <utility>

#include "apps/cli/packing/directory_files.h"
#include "shared/data_format/index_line.h"

namespace keyscout {
namespace {

constexpr std::string_view lineEnd = "\r\n";

void appendPadded(std::string& line, std::string_view text, std::size_t width) {
  line += text;
  line.append(width - text.size(), ' ');
}

void appendIndexAndNumber(std::string& line, const TableRow& row) {
  appendPadded(line, row.index, RecordColumns::index.width);
  appendPadded(line, row.number, RecordColumns::number.width);
}

void appendIndexEntry(std::string& line, const TableRow& row) {
  appendIndexAndNumber(line, row);
  appendPadded(line, row.brand, RecordColumns::brand.width);
}

}  // namespace

TableWriter::TableWriter(std::filesystem::path folder, const std::filesystem::path& indexName,
                         std::uint64_t rowsPerTable)
    : folder_(std::move(folder)), rowsPerTable_(rowsPerTable), index_(folder_ / indexName) {}

void TableWriter::add(const TableRow& row) {
  if (!table_) beginTable(row);
  line_.clear();
  appendIndexAndNumber(line_, row);
  // Nothing stands behind the brand: a lookup takes the rest of the line for it.
  line_ += row.brand;
  line_ += lineEnd;
  table_->write(line_);
  lastEntry_.clear();
  appendIndexEntry(lastEntry_, row);
  if (++rows_ == rowsPerTable_) endTable();
}

std::uint64_t TableWriter::finish() {
  if (table_) endTable();
  index_.close();
  return tables_;
}

void TableWriter::beginTable(const TableRow& row) {
  table_.emplace(folder_ / tableFile(tables_));
  indexLine_.clear();
  appendPadded(indexLine_, std::to_string(tables_), IndexColumns::tableNumber.width);
  appendIndexEntry(indexLine_, row);
}

void TableWriter::endTable() {
  table_->close();
  table_.reset();
  index_.write(indexLine_);
  index_.write(lastEntry_);
  index_.write(lineEnd);
  ++tables_;
  rows_ = 0;
}

}  // namespace keyscout
