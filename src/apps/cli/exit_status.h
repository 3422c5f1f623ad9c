#pragma once

/// What the program's commands exit with.
namespace keyscout::ExitStatus {

inline constexpr int success = 0;
/// The work was done and its answer is no: findings, nothing covered, a malformed command.
inline constexpr int negative = 1;
/// The work could not be begun: wrong arguments, nothing to read, no terminal.
inline constexpr int unusable = 2;
/// Another process is at the same work; it may be tried again when that has ended.
inline constexpr int busy = 3;

}  // namespace keyscout::ExitStatus
