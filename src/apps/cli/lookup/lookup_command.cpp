#include "apps/cli/lookup/lookup_command.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "apps/cli/arguments/whole_number.h"
#include "apps/cli/exit_status.h"
#include "apps/cli/files/failure_sentence.h"
#include "apps/cli/files/path_text.h"
#include "apps/cli/lookup/lookup.h"
#include "apps/cli/lookup/lookup_output.h"
#include "apps/cli/terminal/standard_stream.h"
#include "lookup/list_limits.h"
#include "platform/local/native_files.h"

namespace keyscout {
namespace {

int run(LookupRequest request, bool asJson) {
  LookupAnswer answer;
  try {
    NativeFiles files;
    request.directory = withDownloadFound(request.directory);
    answer = lookUp(files, request);
  } catch (const std::exception& failure) {
    std::cerr << "keyscout lookup: " << sentenceOf(failure) << '\n';
    return ExitStatus::unusable;
  }
  if (asJson) {
    writeJson(std::cout, request, answer);
  } else {
    writeText(std::cout, answer, TextStyle{usesColor(StandardStream::output)});
    for (const std::string& note : answer.notes) std::cerr << "keyscout lookup: " << note << '\n';
  }
  return answer.entries.empty() ? ExitStatus::negative : ExitStatus::success;
}

}  // namespace

void addLookupCommand(CLI::App& app, int& status) {
  CLI::App* const command =
      app.add_subcommand("lookup", "Print the list that the control shows for a text");
  const auto request = std::make_shared<LookupRequest>();
  const auto path = std::make_shared<std::string>();
  const auto asJson = std::make_shared<bool>(false);
  command->add_option("DIR", *path, "The catalog's data directory")->required();
  command->add_option("TEXT", request->text, "What is typed into the text box")->required();
  command->add_option("--brand", request->brand, "List this brand's numbers only");
  // One value for each --authorized, so that it can stand before DIR as well.
  command->add_option("--authorized", request->authorized, "A brand that may be listed; repeatable")
      ->allow_extra_args(false);
  command->add_option("--count", request->count, "Walk down the list until it has so many entries")
      ->check(wholeNumber(1, ListLimits::maxEntries));
  command->add_flag("--json", *asJson, "Print one JSON object");
  command->add_option("--index", request->directory.indexFile, "The index file's name")
      ->capture_default_str();
  command->add_option("--download", request->directory.downloadFile,
                      "The download file's name; found by its header where not given");
  command->footer(
      "Exits with 1 where nothing is listed, with 2 where the directory cannot be used.\n\n"
      "Example:\n  keyscout lookup /var/lib/catalog AB-1 --brand ACME --count 20");
  command->callback([=, &status] {
    request->directory.path = pathNamed(*path);
    status = run(*request, *asJson);
  });
}

}  // namespace keyscout
