#pragma once

namespace keyscout {

/// The whole program between the system's entry point and its end: runs the command that the
/// arguments, in UTF-8, name, and returns the exit status. Nothing is left in the standard output's
/// buffer; where it could not all be written the status says so. Where the program was interrupted,
/// the signal is still pending.
int runProgram(int argc, const char* const* argv);

}  // namespace keyscout
