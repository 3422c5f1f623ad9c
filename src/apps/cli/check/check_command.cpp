#include "apps/cli/check/check_command.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <optional>

#include "apps/cli/check/check_output.h"
#include "apps/cli/exit_status.h"
#include "apps/cli/files/failure_sentence.h"
#include "apps/cli/files/path_text.h"
#include "apps/cli/terminal/interruption.h"
#include "apps/cli/terminal/progress_bar.h"
#include "apps/cli/terminal/standard_stream.h"
#include "platform/local/native_files.h"

namespace keyscout {
namespace {

/// A progress bar below the findings, which it makes room for on a terminal that shows both.
class BarBelowFindings {
 public:
  void show(std::string_view step, std::uint64_t done, std::uint64_t total) {
    if (!bar_) bar_.emplace(std::cerr, isTerminal(StandardStream::error));
    bar_->show(step, done, total);
  }
  void makeRoom() { bar_.reset(); }

 private:
  std::optional<ProgressBar> bar_;
};

int check(const DataDirectory& directory, bool asJson) try {
  Interruption::watch();
  std::unique_ptr<CheckOutput> output;
  const auto begun = [&]() -> CheckOutput& {
    if (!output) {
      if (asJson)
        output = std::make_unique<CheckJson>(std::cout);
      else
        output =
            std::make_unique<CheckText>(std::cout, TextStyle{usesColor(StandardStream::output)});
    }
    return *output;
  };
  BarBelowFindings bar;
  NativeFiles files;
  const CheckSummary summary = checkCatalog(
      files, directory,
      [&](const Finding& finding) {
        bar.makeRoom();
        begun().add(finding);
        Interruption::check();
      },
      [&](std::string_view step, std::uint64_t done, std::uint64_t total) {
        Interruption::check();
        bar.show(step, done, total);
      });
  bar.makeRoom();
  begun().finish(summary);
  const bool isClean = output->errors() + output->warnings() == 0;
  return isClean ? ExitStatus::success : ExitStatus::negative;
} catch (const Interruption&) {
  throw;
} catch (const std::exception& failure) {
  std::cerr << "keyscout check: " << sentenceOf(failure) << '\n';
  return ExitStatus::unusable;
}

}  // namespace

void addCheckCommand(CLI::App& app, int& status) {
  CLI::App* const command =
      app.add_subcommand("check", "Report what is wrong with a data directory");
  const auto directory = std::make_shared<DataDirectory>();
  const auto path = std::make_shared<std::string>();
  const auto asJson = std::make_shared<bool>(false);
  command->add_option("DIR", *path, "The catalog's data directory")->required();
  command->add_flag("--json", *asJson, "Print one JSON object");
  command->add_option("--index", directory->indexFile, "The index file's name")
      ->capture_default_str();
  command->add_option("--download", directory->downloadFile,
                      "The download file's name; found by its header where not given");
  command->footer(
      "Prints a line for each finding, file:line: error|warning: sentence, and a summary.\n"
      "Exits with 0 where there are none, with 1 where there are, with 2 where the directory\n"
      "cannot be read.\n\n"
      "Example:\n  keyscout check /var/lib/catalog");
  command->callback([=, &status] {
    directory->path = pathNamed(*path);
    status = check(*directory, *asJson);
  });
}

}  // namespace keyscout
