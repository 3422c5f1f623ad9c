#include "apps/cli/terminal/standard_stream.h"

#include <cstdlib>
#include <string_view>

#ifdef _WIN32
#include <io.h>
#include <windows.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace keyscout {
namespace {

constexpr int usualColumns = 80;

std::string_view environment(const char* name) {
  const char* const value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): one thread
  return value ? value : "";
}

}  // namespace

#ifdef _WIN32
bool isTerminal(StandardStream stream) { return _isatty(static_cast<int>(stream)) != 0; }

int terminalColumns(StandardStream stream) {
  const auto console = reinterpret_cast<HANDLE>(_get_osfhandle(static_cast<int>(stream)));
  CONSOLE_SCREEN_BUFFER_INFO info;
  if (!GetConsoleScreenBufferInfo(console, &info)) return usualColumns;
  return info.srWindow.Right - info.srWindow.Left + 1;
}
#else
bool isTerminal(StandardStream stream) { return ::isatty(static_cast<int>(stream)) != 0; }

int terminalColumns(StandardStream stream) {
  winsize size{};
  const bool isTold = ::ioctl(static_cast<int>(stream), TIOCGWINSZ, &size) == 0;
  return isTold && size.ws_col > 0 ? size.ws_col : usualColumns;
}
#endif

bool usesColor(StandardStream stream) {
  return isTerminal(stream) && environment("NO_COLOR").empty() && environment("TERM") != "dumb";
}

}  // namespace keyscout
