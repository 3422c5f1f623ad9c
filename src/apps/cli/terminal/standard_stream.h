#pragma once

namespace keyscout {

enum class StandardStream { input = 0, output = 1, error = 2 };

/// True when a person sits at the other end of the program's stream, not a file or another program.
bool isTerminal(StandardStream stream);

/// True when what is written to the stream may be coloured: a terminal that can, and a person who
/// has not set NO_COLOR.
bool usesColor(StandardStream stream);

/// How many columns the terminal at the stream has; 80 where that cannot be told.
int terminalColumns(StandardStream stream);

}  // namespace keyscout
