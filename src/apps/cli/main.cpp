#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>

#include "apps/cli/exit_status.h"
#include "apps/cli/pack/pack_command.h"
#include "apps/cli/play/play_command.h"

int main(int argc, char** argv) {
  using namespace keyscout;

  CLI::App app{"Looks up product catalog numbers as they are typed."};
  app.name("keyscout");
  app.set_version_flag("--version", "keyscout " KEYSCOUT_VERSION);
  app.require_subcommand(1);

  // Each command registers its arguments and leaves its exit status here.
  int status = ExitStatus::success;
  addPlayCommand(app, status);
  addPackCommand(app, status);

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& failure) {
    return app.exit(failure) == 0 ? ExitStatus::success : ExitStatus::unusable;
  } catch (const std::exception& failure) {
    std::cerr << "keyscout: " << failure.what() << '\n';
    return ExitStatus::unusable;
  }
  return status;
}
