#include "apps/cli/terminal/interruption.h"

#include <array>
#include <csignal>

namespace keyscout {
namespace {

volatile std::sig_atomic_t pendingSignal = 0;

extern "C" {
static void keepSignal(int signal) { pendingSignal = signal; }
}

#ifdef _WIN32
constexpr std::array watched{SIGINT, SIGTERM, SIGBREAK};

void setHandler(int signal, void (*handler)(int)) { std::signal(signal, handler); }
#else
constexpr std::array watched{SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE, SIGXFSZ};

void setHandler(int signal, void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  sigemptyset(&action.sa_mask);
  // No restart: a read that waits for a person has to end as well.
  action.sa_flags = 0;
  sigaction(signal, &action, nullptr);
}
#endif

}  // namespace

void Interruption::watch() {
  for (const int signal : watched) setHandler(signal, keepSignal);
}

int Interruption::pending() noexcept { return pendingSignal; }

void Interruption::check() {
  if (pendingSignal != 0) throw Interruption{pendingSignal};
}

bool Interruption::dismiss() noexcept {
  const bool hasCome = pendingSignal != 0;
  pendingSignal = 0;
  return hasCome;
}

void Interruption::finish() {
  if (pendingSignal == 0) return;
  setHandler(pendingSignal, SIG_DFL);
  std::raise(pendingSignal);
}

}  // namespace keyscout
