#include "apps/cli/program.h"
#include "apps/cli/terminal/interruption.h"

int main(int argc, char** argv) {
  const int status = keyscout::runProgram(argc, argv);
  keyscout::Interruption::finish();
  return status;
}
