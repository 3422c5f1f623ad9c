#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "apps/cli/check/brand_check.h"
#include "apps/cli/check/brand_index_check.h"
#include "apps/cli/check/case_check.h"
#include "apps/cli/check/checked_directory.h"
#include "apps/cli/check/index_check.h"
#include "apps/cli/sorting/number_order.h"
#include "shared/data_format/catalog_line.h"

namespace keyscout {

/// How much of a step is done, told to whoever wants to know.
class StepProgress {
 public:
  StepProgress(const CheckedDirectory& directory, std::string_view step, std::uint64_t total)
      : directory_(directory), step_(step), total_(total) {}

  /// To be called for each line, with its length.
  void advance(std::size_t length) {
    done_ += length + lineEnd;
    if (++lines_ % linesPerReport == 0 && directory_.progress)
      directory_.progress(step_, done_, total_);
  }
  std::uint64_t lines() const { return lines_; }

 private:
  static constexpr std::size_t lineEnd = 2;
  static constexpr std::uint64_t linesPerReport = 4096;

  const CheckedDirectory& directory_;
  std::string_view step_;
  std::uint64_t total_;
  std::uint64_t done_ = 0;
  std::uint64_t lines_ = 0;
};

/// The tables, line by line, each against the one before it and against the index.
class TableCheck {
 public:
  /// All must outlive the check.
  TableCheck(const CheckedDirectory& directory, const NumberOrder& order, BrandCheck& brands,
             BrandIndexCheck& brandIndex, CaseCheck& letterCase, StepProgress& progress)
      : directory_(directory),
        order_(order),
        brands_(brands),
        brandIndex_(brandIndex),
        case_(letterCase),
        progress_(progress) {}

  /// Checks the table at `position` of the index.
  void check(const IndexedTable& table, std::size_t position);

 private:
  /// A number and where it stands.
  struct Place {
    std::string key;  // as NumberOrder has it
    std::string number;
    std::string index;
    std::string brand;
    std::string file;
    std::uint64_t line = 0;
  };

  void readLines(const IndexedTable& table);
  void checkLine(std::string_view bytes);
  void checkIndexField(std::string_view index);
  void checkCharacters(std::string_view bytes, std::string_view brand) const;
  void checkOrder(std::string_view number);
  void checkAgainstIndex(const IndexedTable& table, const Place& found, bool isFirst) const;
  std::string placeOfPrevious() const;
  void error(const std::string& sentence) const { directory_.error(file_, line_, sentence); }

  const CheckedDirectory& directory_;
  const NumberOrder& order_;
  BrandCheck& brands_;
  BrandIndexCheck& brandIndex_;
  CaseCheck& case_;
  StepProgress& progress_;

  std::string file_;
  std::size_t position_ = 0;
  std::uint64_t line_ = 0;
  Place previous_;  // the last complete line, also of the table before
  Place first_;     // the first complete line of this table
  std::string key_;
};

}  // namespace keyscout
