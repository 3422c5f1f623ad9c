#include <fcntl.h>
#include <unistd.h>

#include "apps/cli/program.h"
#include "apps/cli/terminal/interruption.h"

namespace {

/// A standard stream that the caller has closed must not become the first file that is opened:
/// what is meant for the stream would be written into that. Now it fails instead.
void occupyClosedStreams() {
  int opened = 0;
  do opened = ::open("/dev/null", O_RDONLY);
  while (opened >= 0 && opened <= STDERR_FILENO);
  if (opened >= 0) ::close(opened);
}

}  // namespace

int main(int argc, char** argv) {
  occupyClosedStreams();
  const int status = keyscout::runProgram(argc, argv);
  keyscout::Interruption::finish();
  return status;
}
