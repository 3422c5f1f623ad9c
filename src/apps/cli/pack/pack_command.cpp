#include "apps/cli/pack/pack_command.h"

#include <CLI/CLI.hpp>
#include <cstdint>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <utility>

#include "apps/cli/arguments/whole_number.h"
#include "apps/cli/csv/csv_options.h"
#include "apps/cli/files/path_text.h"
#include "apps/cli/pack/pack_output.h"
#include "apps/cli/packing/pack_catalog.h"
#include "apps/cli/terminal/interruption.h"
#include "apps/cli/terminal/progress_bar.h"
#include "apps/cli/terminal/standard_stream.h"
#include "platform/local/native_code_page.h"

namespace keyscout {
namespace {

/// What the arguments say, most of it yet as text.
struct Arguments {
  PackOptions options;
  CsvOptions csv;
  std::string download;
  std::string directory;
  std::string csvFile;
  std::string index;
  std::string indexFile = pathText(PackOptions{}.indexName);
  std::string downloadName;
  std::string codePage;
  std::string delimiter;
  std::string duplicates = "refuse";
  bool asJson = false;
  bool isQuiet = false;
};

// More lines than any download has; a larger number is a slip.
constexpr std::uint64_t maxLines = 1'000'000'000;

void complain(const std::string& sentences) {
  std::istringstream lines{sentences};
  for (std::string line; std::getline(lines, line);) std::cerr << "keyscout pack: " << line << '\n';
}

PackSummary packShowingProgress(const PackOptions& options) {
  ProgressBar bar{std::cerr, isTerminal(StandardStream::error)};
  return packCatalog(options, [&](std::string_view step, std::uint64_t done, std::uint64_t total) {
    Interruption::check();
    bar.show(step, done, total);
  });
}

int pack(const Arguments& arguments, PackOptions options) try {
  Interruption::watch();
  const auto list = arguments.csvFile.empty() ? nullptr : openCsv(arguments.csv);
  options.maker = list.get();
  const PackSummary summary = packShowingProgress(options);
  if (Interruption::dismiss()) complain("The interruption came too late; the catalog is in place.");
  if (arguments.isQuiet) return ExitStatus::success;
  (arguments.asJson ? writeJson : writeText)(std::cout, options, summary);
  return ExitStatus::success;
} catch (const PackError& failure) {
  complain(failure.what());
  return failure.exitStatus();
} catch (const Interruption&) {
  complain("Interrupted; " + arguments.directory + " is as it was.");
  throw;
}

/// A list in another form needs no download beside it.
void sortOutPositionals(Arguments& arguments) {
  if (!arguments.csvFile.empty()) {
    if (!arguments.directory.empty())
      throw CLI::ExtrasError({"DIR is the only argument beside --csv"});
    std::swap(arguments.download, arguments.directory);
    if (arguments.csv.number.empty()) throw CLI::RequiredError("--number");
    if (arguments.csv.brand.empty()) throw CLI::RequiredError("--brand");
  } else if (arguments.download.empty()) {
    throw CLI::RequiredError("DOWNLOAD");
  }
  if (arguments.directory.empty()) throw CLI::RequiredError("DIR");
}

std::optional<char> delimiterCalled(const std::string& name) {
  if (name == "comma") return ',';
  if (name == "semicolon") return ';';
  if (name == "tab") return '\t';
  return std::nullopt;
}

PackOptions packOptions(Arguments& arguments) {
  sortOutPositionals(arguments);
  PackOptions options = arguments.options;
  options.download = pathNamed(arguments.download);
  options.directory = pathNamed(arguments.directory);
  options.downloadName = pathNamed(arguments.downloadName);
  // Among the columns of a list the index is one, as in the download that is made of it.
  const bool isColumn = !arguments.csvFile.empty();
  if (isColumn) {
    arguments.csv.file = pathNamed(arguments.csvFile);
    arguments.csv.index = arguments.index;
    arguments.csv.delimiter = delimiterCalled(arguments.delimiter);
    arguments.csv.keepsFirst = arguments.duplicates == "first";
    if (!arguments.codePage.empty()) arguments.csv.codePage = arguments.codePage;
  } else if (!arguments.codePage.empty()) {
    const std::string expected = std::to_string(nativeCodePageNumber());
    if (arguments.codePage != expected)
      throw CLI::ValidationError("--code-page", "the code page of a download is " + expected);
    options.acceptsUtf8 = true;
  }
  options.indexName =
      pathNamed(isColumn || arguments.index.empty() ? arguments.indexFile : arguments.index);
  return options;
}

void addCsvOptions(CLI::App& command, Arguments& arguments) {
  CsvOptions& csv = arguments.csv;
  CLI::Option* const file =
      command.add_option("--csv", arguments.csvFile, "Pack this CSV list instead of a download");
  const std::string group = "Options of --csv";
  const auto of = [&](CLI::Option* option) { option->needs(file)->group(group); };
  of(command.add_option("--number", csv.number,
                        "The column of the catalog numbers, by its name or counted from 1"));
  of(command.add_option("--brand", csv.brand, "The column of the brands"));
  of(command
         .add_option("--delimiter", arguments.delimiter,
                     "What stands between columns; what the first line has most of unless given")
         ->check(CLI::IsMember({"comma", "semicolon", "tab"})));
  of(command.add_flag("--no-header", csv.hasNoHeader, "The first line is a record already"));
  of(command.add_flag("--upper-case", csv.inUpperCase, "Turn the numbers into capitals"));
  of(command
         .add_option("--duplicates", arguments.duplicates,
                     "Refuse a list with numbers that stand twice, or take the first of each")
         ->check(CLI::IsMember({"refuse", "first"}))
         ->capture_default_str());
}

}  // namespace

void addPackCommand(CLI::App& app, int& status) {
  const auto arguments = std::make_shared<Arguments>();
  PackOptions& options = arguments->options;
  CLI::App* const command =
      app.add_subcommand("pack", "Make a data directory from a catalog download or a CSV list");
  command->add_option("DOWNLOAD", arguments->download,
                      "The catalog download, - for the standard input");
  command->add_option("DIR", arguments->directory, "The data directory, made where there is none");
  command
      ->add_option("--lines", options.linesPerTable,
                   "Lines of a table; otherwise 200, or more where 1001 tables would not do")
      ->check(wholeNumber(1, maxLines));
  command->add_option("--index", arguments->index,
                      "The name of the index file; with --csv the column of the indexes, which are "
                      "made up unless given");
  command->add_option("--index-file", arguments->indexFile, "The name of the index file")
      ->capture_default_str();
  command->add_option("--download", arguments->downloadName,
                      "The download's name in DIR; its own or download.txt unless given");
  command->add_option("--code-page", arguments->codePage,
                      "The code page of a CSV list, otherwise UTF-8; " +
                          std::to_string(nativeCodePageNumber()) +
                          " takes a download for that though it looks like UTF-8");
  command->add_flag("--force", options.force, "Pack into a directory that holds other files");
  command->add_flag("--dry-run", options.dryRun, "Tell what would be made and write nothing");
  command->add_flag("--json", arguments->asJson, "Print one JSON object");
  command->add_flag("--quiet", arguments->isQuiet, "Print nothing but failures");
  addCsvOptions(*command, *arguments);
  command->footer(
      "While it works the catalog in DIR serves on. Exits with 0 when the new one is in place,\n"
      "with 1 where the list is refused, with 2 where the work cannot be done, with 3 where\n"
      "another pack is at work in DIR.\n\n"
      "Example:\n"
      "  keyscout pack parts.txt /var/lib/catalog\n"
      "  keyscout pack --csv parts.csv /var/lib/catalog --number 'Part No' --brand Maker");
  command->callback([=, &status] {
    const PackOptions complete = packOptions(*arguments);
    status = pack(*arguments, complete);
  });
}

}  // namespace keyscout
