#include "apps/cli/host/interruption.h"
#include "apps/cli/program.h"

int main(int argc, char** argv) {
  const int status = keyscout::runProgram(argc, argv);
  keyscout::Interruption::finish();
  return status;
}
