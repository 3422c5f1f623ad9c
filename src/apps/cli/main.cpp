#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>

#include "apps/cli/check/check_command.h"
#include "apps/cli/exit_status.h"
#include "apps/cli/host/interruption.h"
#include "apps/cli/lookup/lookup_command.h"
#include "apps/cli/pack/pack_command.h"
#include "apps/cli/play/play_command.h"
#ifdef KEYSCOUT_HAS_TRY
#include "apps/cli/try/try_command.h"
#endif

int main(int argc, char** argv) {
  using namespace keyscout;

  CLI::App app{"Looks up product catalog numbers as they are typed."};
  app.name("keyscout");
  app.require_subcommand(1);

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
    Interruption::finish();
  } catch (const std::exception& failure) {
    std::cerr << "keyscout: " << failure.what() << '\n';
    return ExitStatus::unusable;
  }
  std::cout.flush();
  Interruption::finish();
  return status;
}
