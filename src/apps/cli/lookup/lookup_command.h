#pragma once

namespace CLI {
class App;
}

namespace keyscout {

/// Adds `lookup`, which prints the list that a control shows for a text; its exit status goes to
/// `status`.
void addLookupCommand(CLI::App& app, int& status);

}  // namespace keyscout
