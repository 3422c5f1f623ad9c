#include "apps/cli/program.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "apps/cli/arguments/suggestion.h"
#include "apps/cli/check/check_command.h"
#include "apps/cli/exit_status.h"
#include "apps/cli/files/failure_sentence.h"
#include "apps/cli/lookup/lookup_command.h"
#include "apps/cli/pack/pack_command.h"
#include "apps/cli/play/play_command.h"
#include "apps/cli/terminal/interruption.h"
#ifdef KEYSCOUT_HAS_TRY
#include "apps/cli/try/try_command.h"
#endif

namespace keyscout {
namespace {

/// The command that the arguments name, the program itself where they name none.
const CLI::App* namedCommand(const CLI::App* app) {
  const auto named = app->get_subcommands();
  return named.empty() ? app : named.front();
}

std::vector<std::string> commandNames(const CLI::App* app) {
  std::vector<std::string> names;
  for (const CLI::App* const command : app->get_subcommands({}))
    names.push_back(command->get_name());
  return names;
}

std::vector<std::string> optionNames(const CLI::App* command) {
  std::vector<std::string> names;
  for (const CLI::Option* const option : command->get_options())
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  return names;
}

std::string didYouMean(const std::string& typed, const std::vector<std::string>& words) {
  const std::string meant = likelyMeant(typed, words);
  return meant.empty() ? "" : "; did you mean " + meant + "?";
}

std::string noSuchCommand(const CLI::App* app, const std::string& name) {
  return "there is no command " + name + didYouMean(name, commandNames(app));
}

/// What was wrong with the arguments, and where to read how they are meant.
std::string argumentFailure(const CLI::App* app, const CLI::Error& failure) {
  const CLI::App* const command = namedCommand(app);
  const std::string name = command == app ? "keyscout" : "keyscout " + command->get_name();
  std::string sentence = failure.what();
  if (const auto unknown = app->remaining(true); !unknown.empty()) {
    const std::string& first = unknown.front();
    if (first.starts_with('-')) {
      const std::string option = first.substr(0, first.find('='));
      sentence = "there is no option " + option + didYouMean(option, optionNames(command));
    } else if (command == app) {
      sentence = noSuchCommand(app, first);
    }
  }
  return name + ": " + sentence + "\nRun " + name + " --help for how it is used.\n";
}

/// Adds `help`, which shows what `--help` shows.
void addHelpCommand(CLI::App& app) {
  CLI::App* const command = app.add_subcommand("help", "Say how the program or a command is used");
  const auto name = std::make_shared<std::string>();
  command->add_option("COMMAND", *name, "The command; the whole program where none is named");
  command->footer("Example:\n  keyscout help lookup");
  command->callback([&app, name] {
    const auto commands = app.get_subcommands({});
    const auto named = std::ranges::find(commands, *name, &CLI::App::get_name);
    if (named == commands.end() && !name->empty())
      throw CLI::ValidationError(noSuchCommand(&app, *name));
    if (named != commands.end()) {
      std::cout << (*named)->help("keyscout");
    } else {
      std::cout << app.get_formatter()->make_help(&app, "keyscout", CLI::AppFormatMode::Normal);
    }
  });
}

/// Runs the command that the arguments name; its exit status.
int runCommand(int argc, const char* const* argv) {
  CLI::App app{"Looks up product catalog numbers as they are typed."};
  app.name("keyscout");
  app.require_subcommand(0, 1);
  app.allow_windows_style_options(false);  // a path may begin with a slash everywhere
  app.failure_message(argumentFailure);

  // Each command registers its arguments and leaves its exit status here.
  int status = ExitStatus::success;
  addCheckCommand(app, status);
  addHelpCommand(app);
  addLookupCommand(app, status);
  addPackCommand(app, status);
  addPlayCommand(app, status);
#ifdef KEYSCOUT_HAS_TRY
  addTryCommand(app, status);
#endif

  const std::string version = "keyscout " KEYSCOUT_VERSION;
  app.set_version_flag("--version", version);
  for (CLI::App* const command : app.get_subcommands({}))
    command->set_version_flag("--version", version);

  try {
    app.parse(argc, argv);
    if (app.get_subcommands().empty()) std::cout << app.help();
  } catch (const CLI::ParseError& failure) {
    return app.exit(failure) == 0 ? ExitStatus::success : ExitStatus::unusable;
  } catch (const Interruption&) {
    // The signal is still pending: the caller ends the program by it.
  } catch (const std::exception& failure) {
    std::cerr << "keyscout: " << sentenceOf(failure) << '\n';
    return ExitStatus::unusable;
  }
  return status;
}

}  // namespace

int runProgram(int argc, const char* const* argv) {
  const int status = runCommand(argc, argv);
  std::cout.flush();
  // A reader that has gone is no failure to be told of; the signal tells.
  if (std::cout || Interruption::pending() != 0) return status;
  std::cerr << "keyscout: The output could not be written.\n";
  return ExitStatus::unusable;
}

}  // namespace keyscout
