#include "apps/cli/try/try_command.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "apps/cli/exit_status.h"
#include "apps/cli/files/failure_sentence.h"
#include "apps/cli/files/path_text.h"
#include "apps/cli/terminal/interruption.h"
#include "apps/cli/terminal/standard_stream.h"
#include "apps/cli/try/sample_catalog.h"
#include "apps/cli/try/try_host.h"
#include "platform/local/native_files.h"

namespace keyscout {
namespace {

int refuse(const std::string& sentence) {
  std::cerr << "keyscout try: " << sentence << '\n';
  return ExitStatus::unusable;
}

int run(DataDirectory directory) try {
  if (!isTerminal(StandardStream::input) || !isTerminal(StandardStream::output))
    return refuse("needs a terminal; without one, keyscout lookup DIR TEXT prints a list.");
  if (directory.path.empty()) directory.path = sampleCatalog();
  if (directory.path.empty())
    return refuse(
        "no sample catalog came with the program; name a data directory: keyscout try DIR");
  NativeFiles files;
  TryHost{files, directory}.run();
  return ExitStatus::success;
} catch (const Interruption&) {
  throw;
} catch (const std::exception& failure) {
  return refuse(sentenceOf(failure));
}

}  // namespace

void addTryCommand(CLI::App& app, int& status) {
  CLI::App* const command =
      app.add_subcommand("try", "Try lookups in a form on the terminal, on any catalog");
  const auto directory = std::make_shared<DataDirectory>();
  const auto path = std::make_shared<std::string>();
  command->add_option("DIR", *path, "The catalog's data directory; the sample where none is named");
  command->add_option("--index", directory->indexFile, "The index file's name")
      ->capture_default_str();
  command->add_option("--download", directory->downloadFile,
                      "The download file's name; found by its header where not given");
  command->footer(
      "F1 shows the keys. The directory is never written to.\n\n"
      "Example:\n  keyscout try /var/lib/catalog");
  command->callback([=, &status] {
    directory->path = pathNamed(*path);
    status = run(*directory);
  });
}

}  // namespace keyscout
