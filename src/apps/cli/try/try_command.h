#pragma once

namespace CLI {
class App;
}

namespace keyscout {

/// Adds `try`, a host application on a terminal; its exit status goes to `status`.
void addTryCommand(CLI::App& app, int& status);

}  // namespace keyscout
