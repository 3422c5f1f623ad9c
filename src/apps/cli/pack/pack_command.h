#pragma once

namespace CLI {
class App;
}

namespace keyscout {

/// Adds `pack`, which makes a data directory from a catalog download; its exit status goes to
/// `status`.
void addPackCommand(CLI::App& app, int& status);

}  // namespace keyscout
