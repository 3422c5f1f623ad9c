#pragma once

namespace CLI {
class App;
}

namespace keyscout {

/// Adds `play`, which replays a scripted session; its exit status goes to `status`.
void addPlayCommand(CLI::App& app, int& status);

}  // namespace keyscout
