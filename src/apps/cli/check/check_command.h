#pragma once

namespace CLI {
class App;
}

namespace keyscout {

/// Adds `check`, which reports what is wrong with a data directory; its exit status goes to
/// `status`.
void addCheckCommand(CLI::App& app, int& status);

}  // namespace keyscout
