#include "apps/cli/pack/pack_command.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <string>

#include "apps/cli/arguments/whole_number.h"
#include "apps/cli/files/path_text.h"
#include "apps/cli/packing/pack_catalog.h"
#include "apps/cli/terminal/interruption.h"
#include "apps/cli/terminal/progress_bar.h"
#include "apps/cli/terminal/standard_stream.h"

namespace keyscout {
namespace {

void print(const PackSummary& summary, const std::filesystem::path& directory) {
  std::cout << "Records:          " << summary.records << '\n'
            << "Tables:           " << summary.tables << '\n'
            << "Lines per table:  " << summary.linesPerTable << '\n'
            << "Brands:           " << summary.brands << '\n'
            << "To be set in the host:\n"
            << "  KeyscoutDirectory           " << pathText(directory) << '\n'
            << "  KeyscoutIndexFile           " << pathText(summary.indexName) << '\n'
            << "  CatalogNumbersDownloadFile  " << pathText(summary.downloadName) << '\n';
}

// More lines than any download has; a larger number is a slip.
constexpr std::uint64_t mostLines = 1'000'000'000;

int pack(const PackOptions& options) try {
  // Stopped half-way, a pack still takes its staging folder away and says so in the control file.
  Interruption::watch();
  PackSummary summary;
  {
    ProgressBar bar{std::cerr, isTerminal(StandardStream::error)};
    summary =
        packCatalog(options, [&](std::string_view step, std::uint64_t done, std::uint64_t total) {
          Interruption::check();
          bar.show(step, done, total);
        });
  }
  print(summary, options.directory);
  return ExitStatus::success;
} catch (const PackError& failure) {
  std::cerr << failure.what() << '\n';
  return failure.exitStatus();
}

}  // namespace

void addPackCommand(CLI::App& app, int& status) {
  const auto options = std::make_shared<PackOptions>();
  const auto download = std::make_shared<std::string>();
  const auto directory = std::make_shared<std::string>();
  const auto indexName = std::make_shared<std::string>(pathText(options->indexName));
  CLI::App* command = app.add_subcommand("pack", "Make a data directory from a catalog download");
  command->add_option("DOWNLOAD", *download, "The catalog download")->required();
  command->add_option("DIR", *directory, "The data directory, made where there is none")
      ->required();
  command
      ->add_option("--lines", options->linesPerTable,
                   "Lines of a table; otherwise 200, or more where 1001 tables would not do")
      ->check(wholeNumber(1, mostLines));
  command->add_option("--index", *indexName, "The name of the index file")->capture_default_str();
  command->footer("Example:\n  keyscout pack parts.txt /var/lib/catalog");
  command->callback([=, &status] {
    options->download = pathNamed(*download);
    options->directory = pathNamed(*directory);
    options->indexName = pathNamed(*indexName);
    status = pack(*options);
  });
}

}  // namespace keyscout
