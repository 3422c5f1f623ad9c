#include "apps/cli/program.h"

#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>

#include "apps/cli/check/check_command.h"
#include "apps/cli/exit_status.h"
#include "apps/cli/lookup/lookup_command.h"
#include "apps/cli/pack/pack_command.h"
#include "apps/cli/play/play_command.h"
#include "apps/cli/terminal/interruption.h"
#ifdef KEYSCOUT_HAS_TRY
#include "apps/cli/try/try_command.h"
#endif

namespace keyscout {
namespace {

/// What was wrong with the arguments, and where to read how they are meant.
std::string argumentFailure(const CLI::App* app, const CLI::Error& failure) {
  std::string command = "keyscout";
  for (const CLI::App* const named : app->get_subcommands()) command += ' ' + named->get_name();
  const auto unknown = app->remaining();
  const std::string sentence =
      unknown.empty() ? failure.what() : "there is no command " + unknown.front();
  return command + ": " + sentence + "\nRun " + command + " --help for how it is used.\n";
}

}  // namespace

int runProgram(int argc, const char* const* argv) {
  CLI::App app{"Looks up product catalog numbers as they are typed."};
  app.name("keyscout");
  app.require_subcommand(1);
  app.allow_windows_style_options(false);  // a path may begin with a slash everywhere
  app.failure_message(argumentFailure);

  // Each command registers its arguments and leaves its exit status here.
  int status = ExitStatus::success;
  addCheckCommand(app, status);
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
  } catch (const CLI::ParseError& failure) {
    return app.exit(failure) == 0 ? ExitStatus::success : ExitStatus::unusable;
  } catch (const Interruption&) {
    // The signal is still pending: the caller ends the program by it.
  } catch (const std::exception& failure) {
    std::cerr << "keyscout: " << failure.what() << '\n';
    return ExitStatus::unusable;
  }
  std::cout.flush();
  return status;
}

}  // namespace keyscout
