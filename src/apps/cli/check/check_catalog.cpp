#include "apps/cli/check/check_catalog.h"

#include <stdexcept>

#include "apps/cli/check/bounded_files.h"
#include "apps/cli/check/brand_check.h"
#include "apps/cli/check/brand_index_check.h"
#include "apps/cli/check/case_check.h"
#include "apps/cli/check/index_check.h"
#include "apps/cli/check/start_up_check.h"
#include "apps/cli/check/table_check.h"
#include "apps/cli/files/path_text.h"
#include "base/error.h"
#include "platform/local/native_code_page.h"

namespace keyscout {
namespace {

std::uint64_t totalSize(const CheckedDirectory& directory,
                        const std::vector<IndexedTable>& tables) {
  std::uint64_t size = 0;
  for (const IndexedTable& table : tables) size += directory.sizeOf(table.fileName);
  return size;
}

void compareLetterCase(const CheckedDirectory& directory, const std::vector<IndexedTable>& tables,
                       CaseCheck& letterCase) {
  StepProgress progress{directory, "Comparing letter case", totalSize(directory, tables)};
  std::vector<std::string> fileNames;
  for (const IndexedTable& table : tables) {
    fileNames.push_back(table.fileName);
    try {
      const auto file = directory.open(table.fileName);
      for (std::uint64_t line = 1; !file->atEnd(); ++line) {
        const std::string_view bytes = file->readLine();
        progress.advance(bytes.size());
        letterCase.collect(CatalogLine{bytes}.catalogNumber(),
                           static_cast<std::uint32_t>(fileNames.size() - 1), line);
      }
    } catch (const Error&) {
      // The first reading has reported a table that cannot be read.
      continue;
    }
  }
  letterCase.report(fileNames);
}

}  // namespace

CheckSummary checkCatalog(Files& files, const DataDirectory& names, const FindingReport& report,
                          const CheckProgress& progress) {
  if (!std::filesystem::is_directory(names.path))
    throw std::runtime_error(pathText(names.path) + " is not a directory.");
  BoundedFiles bounded{files};
  const CheckedDirectory directory{bounded, withDownloadFound(names), report, progress,
                                   nativeCodePage()};
  checkStartUp(directory);
  const std::vector<IndexedTable> tables = checkIndex(directory);
  BrandCheck brands{directory};
  brands.readFile();

  const NumberOrder order{directory.codePage};
  CaseCheck letterCase{directory, order};
  StepProgress lines{directory, "Checking tables", totalSize(directory, tables)};
  BrandIndexCheck brandIndex{directory};
  TableCheck check{directory, order, brands, brandIndex, letterCase, lines};
  for (std::size_t i = 0; i < tables.size(); ++i) check.check(tables[i], i);
  brandIndex.check(tables);
  if (letterCase.hasNotes()) compareLetterCase(directory, tables, letterCase);
  return {tables.size(), lines.lines()};
}

}  // namespace keyscout
