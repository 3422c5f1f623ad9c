#include "apps/cli/terminal/standard_stream.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace keyscout {

bool isTerminal(StandardStream stream) {
#ifdef _WIN32
  return _isatty(static_cast<int>(stream)) != 0;
#else
  return ::isatty(static_cast<int>(stream)) != 0;
#endif
}

}  // namespace keyscout
