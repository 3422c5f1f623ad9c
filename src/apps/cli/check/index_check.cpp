#include "apps/cli/check/index_check.h"

#include "apps/cli/sentences/counted.h"
#include "apps/cli/sentences/in_quotes.h"
#include "base/error.h"
#include "base/numbers.h"
#include "base/utf8.h"
#include "shared/data_format/directory_files.h"
#include "shared/data_format/index_line.h"
#include "shared/keyscout_module.h"

namespace keyscout {
namespace {

/// What counts of a line that is longer than any should be: the columns and, at the end, the last
/// brand.
std::string withoutMiddle(std::string_view line) {
  constexpr std::size_t lastBrand = RecordColumns::brand.width;
  if (line.size() <= IndexColumns::lineLength) return std::string{line};
  return std::string{line.substr(0, IndexColumns::lineLength - lastBrand)} +
         std::string{line.substr(line.size() - lastBrand)};
}

class IndexCheck {
 public:
  explicit IndexCheck(const CheckedDirectory& directory)
      : directory_(directory), file_(directory.names.indexFile) {}

  std::vector<IndexedTable> run() {
    try {
      const auto file = directory_.open(file_);
      while (!file->atEnd() && !isFull_) {
        const std::string_view bytes = file->readLine();
        ++line_;
        if (!trimmed(bytes).empty()) take(bytes);
      }
      if (tables_.empty()) directory_.error(file_, 1, "names no table");
    } catch (const Error& failure) {
      ++line_;
      error(std::string{"cannot be read: "} + failure.what());
    }
    return std::move(tables_);
  }

 private:
  void take(std::string_view bytes) {
    if (tables_.size() == keyscoutModule::catalogTableCapacity) {
      error("is table 1002; an index holds 1001, and a start-up with more of them fails");
      isFull_ = true;
      return;
    }
    IndexedTable table{parseIndexLine(directory_.codePage.decode(withoutMiddle(bytes))), line_, {}};
    table.fileName = toUtf8(table.entry.tableNumber + String{DirectoryFiles::tableExtension});
    checkLength(bytes.size());
    checkTableNumber(table.entry);
    checkRange(table.entry);
    tables_.push_back(std::move(table));
  }

  void checkLength(std::size_t length) {
    if (length == IndexColumns::lineLength) return;
    directory_.warning(file_, line_,
                       "has " + counted(length, "character") +
                           " instead of 250; its last 50, whatever they hold, are taken "
                           "for the brand of the last entry");
  }

  void checkTableNumber(const CatalogTableEntry& entry) {
    const String position = decimal(static_cast<int>(tables_.size()));
    if (entry.tableNumber == position) return;
    error("table number " + inQuotes(entry.tableNumber) + " stands at position " +
          toUtf8(position) + "; a lookup that goes on from the table before opens " +
          toUtf8(position + String{DirectoryFiles::tableExtension}));
  }

  void checkRange(const CatalogTableEntry& entry) {
    if (entry.firstCatalog.empty()) error("has no first catalog number in columns 21 to 80");
    if (entry.lastCatalog.empty()) error("has no last catalog number in columns 141 to 200");
    if (entry.firstCatalog.empty() || entry.lastCatalog.empty()) return;

    const std::string first = inQuotes(entry.firstCatalog);
    if (entry.firstCatalog > entry.lastCatalog)
      error("ends with " + inQuotes(entry.lastCatalog) + ", which stands below its first number " +
            first);
    if (tables_.empty()) return;
    const IndexedTable& before = tables_.back();
    const std::string line = " (line " + std::to_string(before.line) + ')';
    if (entry.firstCatalog < before.entry.firstCatalog) {
      error("begins with " + first + ", out of order behind " +
            inQuotes(before.entry.firstCatalog) + line);
    } else if (entry.firstCatalog <= before.entry.lastCatalog) {
      error("begins with " + first + " and overlaps the table before, which ends with " +
            inQuotes(before.entry.lastCatalog) + line);
    }
  }

  void error(const std::string& sentence) { directory_.error(file_, line_, sentence); }

  const CheckedDirectory& directory_;
  const std::string file_;
  std::uint64_t line_ = 0;
  bool isFull_ = false;
  std::vector<IndexedTable> tables_;
};

}  // namespace

std::vector<IndexedTable> checkIndex(const CheckedDirectory& directory) {
  return IndexCheck{directory}.run();
}

}  // namespace keyscout
