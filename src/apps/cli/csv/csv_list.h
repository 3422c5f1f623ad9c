#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "apps/cli/csv/csv_columns.h"
#include "apps/cli/csv/csv_options.h"
#include "apps/cli/csv/csv_rows.h"
#include "apps/cli/csv/field_text.h"

namespace keyscout {

/// Makes a download of a CSV list.
class CsvList final : public DownloadMaker {
 public:
  /// Opens the list; fails as `openCsv` does.
  explicit CsvList(const CsvOptions& options);

  MadeDownload make(const std::filesystem::path& file, const std::filesystem::path& scratch,
                    const PackProgress& progress) override;

 private:
  /// A row as the download has it.
  struct Record {
    std::string index;
    std::string number;
    std::string brand;
  };

  void findColumns();
  bool nextRecord(Record& record);
  bool isBlankRow() const;
  std::string textOf(const CsvColumn& column, bool inUpperCase = false) const;
  std::string fieldOf(const CsvColumn& column, std::size_t width, bool inUpperCase = false) const;
  std::string indexOf(std::uint64_t madeUp) const;
  [[noreturn]] void refuse(const CsvColumn& column, const std::string& sentence) const;

  CsvOptions options_;
  CsvRows rows_;
  FieldDecoder decoder_;
  CsvColumn number_;
  CsvColumn brand_;
  std::optional<CsvColumn> index_;
  std::uint64_t records_ = 0;
};

}  // namespace keyscout
