#include "apps/cli/play/play_command.h"

#include <CLI/CLI.hpp>
#include <fstream>
#include <iostream>

#include "apps/cli/exit_status.h"
#include "apps/cli/native_files.h"
#include "apps/cli/play/scripted_host.h"

namespace keyscout {
namespace {

bool isSkipped(const std::string& line) {
  const auto first = line.find_first_not_of(" \t\r");
  return first == line.npos || line[first] == '#';
}

int play(std::istream& script) {
  NativeFiles files;
  ScriptedHost host{files};
  int status = ExitStatus::success;
  std::string line;
  while (std::getline(script, line)) {
    if (isSkipped(line)) continue;
    const Json answer = host.run(line);
    if (answer.contains("malformed")) status = ExitStatus::negative;
    // Flushed at once, since whoever plays interactively waits for it.
    std::cout << answer.dump(-1, ' ', false, Json::error_handler_t::replace) << std::endl;
  }
  return status;
}

int playFile(const std::string& path) {
  std::ifstream script{path, std::ios::binary};
  if (script && script.peek() != std::ifstream::traits_type::eof()) return play(script);
  if (script.is_open() && script.eof()) return ExitStatus::success;
  std::cerr << "keyscout play: cannot read " << path << '\n';
  return ExitStatus::unusable;
}

}  // namespace

void addPlayCommand(CLI::App& app, int& status) {
  CLI::App* const command =
      app.add_subcommand("play", "Replay a scripted session: JSON Lines in, one answer a line out");
  const auto script = std::make_shared<std::string>();
  command->add_option("SCRIPT", *script, "The script to play; standard input where none is named");
  command->footer("Example:\n  echo '{\"op\":\"shared\"}' | keyscout play");
  command->callback(
      [script, &status] { status = script->empty() ? play(std::cin) : playFile(*script); });
}

}  // namespace keyscout
