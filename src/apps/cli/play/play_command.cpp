#include "apps/cli/play/play_command.h"

#include <CLI/CLI.hpp>
#include <fstream>
#include <iostream>

#include "apps/cli/exit_status.h"
#include "apps/cli/files/path_text.h"
#include "apps/cli/play/scripted_host.h"
#include "apps/cli/play/session_view.h"
#include "apps/cli/terminal/standard_stream.h"
#include "platform/local/native_files.h"

namespace keyscout {
namespace {

enum class Show { answers, session };

/// The first character of a line that says anything, NUL where none does.
char firstCharacter(const std::string& line) {
  const auto first = line.find_first_not_of(" \t\r");
  return first == line.npos ? '\0' : line[first];
}

Json answer(ScriptedHost& host, const std::string& line) {
  Json result = host.run(line);
  // Flushed at once, since whoever plays interactively waits for it.
  std::cout << result.dump(-1, ' ', false, Json::error_handler_t::replace) << std::endl;
  return result;
}

int play(std::istream& script, Show show, Widgets widgets) {
  NativeFiles files;
  ScriptedHost host{files, widgets};
  SessionView view{host, std::cout, isTerminal(StandardStream::output)};
  int status = ExitStatus::success;
  std::string line;
  while (std::getline(script, line)) {
    const char first = firstCharacter(line);
    if (first == '#' && show == Show::session) view.heading(line);
    if (first == '#' || first == '\0') continue;
    const Json result = show == Show::session ? view.run(line) : answer(host, line);
    if (result.contains("malformed")) status = ExitStatus::negative;
  }
  return status;
}

int playFile(const std::string& path, Show show, Widgets widgets) {
  std::ifstream script{pathNamed(path), std::ios::binary};
  const bool isReadable = script.is_open() && (script.peek(), !script.bad());
  if (isReadable) {
    script.clear();
    return play(script, show, widgets);
  }
  std::cerr << "keyscout play: cannot read " << path << "; name a script of JSON Lines\n";
  return ExitStatus::unusable;
}

}  // namespace

void addPlayCommand(CLI::App& app, int& status) {
  CLI::App* const command =
      app.add_subcommand("play", "Replay a scripted session: JSON Lines in, one answer a line out");
  const auto script = std::make_shared<std::string>();
  command->add_option("SCRIPT", *script, "The script to play; standard input where none is named");
  const auto showsSession = std::make_shared<bool>(false);
  command->add_flag("--view", *showsSession, "Show the session as a person would see it");
  const auto kind = std::make_shared<std::string>("memory");
  command
      ->add_option("--widgets", *kind,
                   "The widgets to play on: in memory, or the real ones of Windows, win32")
      ->check(CLI::IsMember({"memory", "win32"}))
      ->capture_default_str();
  command->footer("Example:\n  echo '{\"op\":\"shared\"}' | keyscout play");
  command->callback([script, showsSession, kind, &status] {
    const Widgets widgets = *kind == "win32" ? Widgets::win32 : Widgets::memory;
    if (!hasWidgets(widgets)) {
      std::cerr << "keyscout play: this program was not built for Windows, so it has no widgets "
                   "win32; play on --widgets memory\n";
      status = ExitStatus::unusable;
      return;
    }
    const Show show = *showsSession ? Show::session : Show::answers;
    status = script->empty() ? play(std::cin, show, widgets) : playFile(*script, show, widgets);
  });
}

}  // namespace keyscout
