#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "apps/cli/packing/download_maker.h"

namespace keyscout {

/// How a CSV list is to be read. A column is named as the first row has it, or counted from 1.
struct CsvOptions {
  std::filesystem::path file;  // "-" for the program's own input
  std::string number;
  std::string brand;
  /// Empty where indexes are to be made up: 1, 2, ...
  std::string index;
  /// What most of the first line's separators are unless given.
  std::optional<char> delimiter;
  /// The first row is a record and not the names of the columns.
  bool hasNoHeader = false;
  /// Numbers are turned into capitals, which is what typing is looked up in.
  bool inUpperCase = false;
  /// Of numbers that stand twice the first is taken and the others are dropped; otherwise the list
  /// is refused for them.
  bool keepsFirst = false;
  /// A code page by its number, or a character set by its name.
  std::string codePage = "UTF-8";
};

/// Opens a list. Fails with `PackError` where it cannot be opened, or where the program was built
/// without what it takes.
std::unique_ptr<DownloadMaker> openCsv(const CsvOptions& options);

}  // namespace keyscout
