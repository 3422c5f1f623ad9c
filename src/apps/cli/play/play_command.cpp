#include "apps/cli/play/play_command.h"

#include <CLI/CLI.hpp>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>

#include "apps/cli/exit_status.h"
#include "apps/cli/files/path_text.h"
#include "apps/cli/play/scripted_host.h"
#include "apps/cli/play/session_view.h"
#include "apps/cli/terminal/standard_stream.h"
#include "platform/local/native_files.h"

namespace keyscout {
namespace {

struct PlayOptions {
  std::string script;  // a path; empty for the standard input
  bool showsSession = false;
  bool numbersLines = false;
  std::string widgets = "memory";
};

/// The first character of a line that says anything, NUL where none does.
char firstCharacter(const std::string& line) {
  const auto first = line.find_first_not_of(" \t\r");
  return first == line.npos ? '\0' : line[first];
}

/// Whoever wrote a long script looks for the line that was not understood.
void nameLine(Json& answer, std::size_t number) {
  if (const auto malformed = answer.find("malformed"); malformed != answer.end())
    *malformed = "line " + std::to_string(number) + ": " + malformed->get<std::string>();
}

int play(std::istream& script, const PlayOptions& options, Widgets widgets) {
  NativeFiles files;
  ScriptedHost host{files, widgets};
  SessionView view{host, std::cout, TextStyle{usesColor(StandardStream::output)}};
  int status = ExitStatus::success;
  std::string line;
  for (std::size_t number = 1; std::getline(script, line); ++number) {
    const char first = firstCharacter(line);
    if (first == '#' && options.showsSession) view.heading(line);
    if (first == '#' || first == '\0') continue;
    Json answer = host.run(line);
    nameLine(answer, number);
    if (options.numbersLines) answer["line"] = number;
    if (answer.contains("malformed")) status = ExitStatus::negative;
    if (options.showsSession) {
      view.show(line, answer);
    } else {
      // Flushed at once, since whoever plays interactively waits for it.
      std::cout << answer.dump(-1, ' ', false, Json::error_handler_t::replace) << std::endl;
    }
  }
  return status;
}

int refuse(const std::string& sentence) {
  std::cerr << "keyscout play: " << sentence << '\n';
  return ExitStatus::unusable;
}

int run(const PlayOptions& options) {
  const Widgets widgets = options.widgets == "win32" ? Widgets::win32 : Widgets::memory;
  if (!hasWidgets(widgets))
    return refuse(
        "this program was not built for Windows, so it has no widgets win32; play on --widgets "
        "memory");
  if (options.script.empty()) return play(std::cin, options, widgets);
  std::ifstream script{pathNamed(options.script), std::ios::binary};
  const bool isReadable = script.is_open() && (script.peek(), !script.bad());
  if (!isReadable) return refuse("cannot read " + options.script + "; name a script of JSON Lines");
  script.clear();
  return play(script, options, widgets);
}

}  // namespace

void addPlayCommand(CLI::App& app, int& status) {
  CLI::App* const command =
      app.add_subcommand("play", "Replay a scripted session: JSON Lines in, one answer a line out");
  const auto options = std::make_shared<PlayOptions>();
  command->add_option("SCRIPT", options->script,
                      "The script to play; standard input where none is named");
  command->add_flag("--view", options->showsSession, "Show the session as a person would see it");
  command->add_flag("--line-numbers", options->numbersLines,
                    "Tell in each answer which line of the script it answers");
  command
      ->add_option("--widgets", options->widgets,
                   "The widgets to play on: in memory, or the real ones of Windows, win32")
      ->check(CLI::IsMember({"memory", "win32"}))
      ->capture_default_str();
  command->footer("Example:\n  echo '{\"op\":\"shared\"}' | keyscout play");
  command->callback([=, &status] { status = run(*options); });
}

}  // namespace keyscout
