#pragma once

#include <exception>

namespace keyscout {

/// A person or the system wants the program to end: Ctrl-C, the end of the terminal, a reader of
/// the output that has gone, a limit of file sizes.
class Interruption : public std::exception {
 public:
  explicit Interruption(int signal) : signal_(signal) {}

  const char* what() const noexcept override { return "interrupted"; }
  int signal() const { return signal_; }

  /// From now on such a signal is kept instead of ending the program on the spot, so that what has
  /// been begun (a screen, files on the disk) can be put away first.
  static void watch();
  /// The signal that has come, 0 while none has.
  static int pending() noexcept;
  /// Fails with an `Interruption` once a signal has come. Long work calls it between its steps.
  static void check();
  /// Forgets a signal that has come too late for the work to be stopped; true where one had.
  static bool dismiss() noexcept;
  /// Ends the program by the signal that has come, as it would have without `watch`, so that the
  /// caller's shell learns why; returns where none has.
  static void finish();

 private:
  int signal_;
};

}  // namespace keyscout
