#include "memory_use.h"

#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <stdexcept>
#include <string>

#include "lookup_stage.h"
#include "platform/posix/posix_files.h"

namespace keyscout::bench {
namespace {

/// The memory of this process that is in use, in KiB.
long residentMemory() {
  std::ifstream status{"/proc/self/status"};
  for (std::string name; status >> name;) {
    long value = 0;
    if (name == "VmRSS:" && status >> value) return value;
  }
  throw std::runtime_error{"the system does not tell the memory in use"};
}

long growthOfThisProcess(const BenchCatalog& catalog) {
  const auto texts = catalog.randomTexts(1'000);
  const long before = residentMemory();
  PosixFiles files;
  LookupStage stage{catalog.directory(), files};
  for (const std::string& text : texts) stage.enter(text);
  return residentMemory() - before;
}

}  // namespace

long memoryOfLookups(const BenchCatalog& catalog) {
  int ends[2];
  if (::pipe(ends) != 0) throw std::runtime_error{"no pipe"};
  const pid_t child = ::fork();
  if (child == 0) {
    const long growth = growthOfThisProcess(catalog);
    const bool told = ::write(ends[1], &growth, sizeof growth) == sizeof growth;
    ::_exit(told ? 0 : 1);
  }
  ::close(ends[1]);
  long growth = -1;
  const bool told = ::read(ends[0], &growth, sizeof growth) == sizeof growth;
  ::close(ends[0]);
  ::waitpid(child, nullptr, 0);
  if (!told) throw std::runtime_error{"the process for " + catalog.name() + " failed"};
  return growth;
}

}  // namespace keyscout::bench
