#include "apps/cli/pack/pack_output.h"

#include <nlohmann/json.hpp>

#include "apps/cli/files/path_text.h"

namespace keyscout {

void writeText(std::ostream& out, const PackOptions& options, const PackSummary& summary) {
  if (options.dryRun) out << "A dry run; this is what would be made.\n";
  if (options.maker) out << "Dropped:          " << summary.dropped << '\n';
  out << "Records:          " << summary.records << '\n'
      << "Tables:           " << summary.tables << '\n'
      << "Lines per table:  " << summary.linesPerTable << '\n'
      << "Brands:           " << summary.brands << '\n'
      << "To be set in the host:\n"
      << "  KeyscoutDirectory           " << pathText(options.directory) << '\n'
      << "  KeyscoutIndexFile           " << pathText(summary.indexName) << '\n'
      << "  CatalogNumbersDownloadFile  " << pathText(summary.downloadName) << '\n';
  if (options.dryRun) return;
  if (summary.replacesCatalog)
    out << "Hosts that are running with this directory still have the former index in memory and\n"
           "list wrong numbers until they call tryToUnlock and resetLastTableNumber.\n";
  else
    out << "Running hosts come to it by setting these, then tryToUnlock and\n"
           "resetLastTableNumber.\n";
}

void writeJson(std::ostream& out, const PackOptions& options, const PackSummary& summary) {
  using Json = nlohmann::ordered_json;
  const Json object{{"records", summary.records},
                    {"dropped", summary.dropped},
                    {"tables", summary.tables},
                    {"linesPerTable", summary.linesPerTable},
                    {"brands", summary.brands},
                    {"directory", pathText(options.directory)},
                    {"indexFile", pathText(summary.indexName)},
                    {"downloadFile", pathText(summary.downloadName)},
                    {"replacesCatalog", summary.replacesCatalog},
                    {"dryRun", options.dryRun}};
  out << object.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
}

}  // namespace keyscout
