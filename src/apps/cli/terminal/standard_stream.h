#pragma once

namespace keyscout {

enum class StandardStream { input = 0, output = 1, error = 2 };

/// True when a person sits at the other end of the program's stream, not a file or another program.
bool isTerminal(StandardStream stream);

}  // namespace keyscout
