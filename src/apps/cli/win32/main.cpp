#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <string>
#include <vector>

#include "apps/cli/program.h"
#include "apps/cli/terminal/interruption.h"
#include "apps/cli/terminal/standard_stream.h"
#include "base/utf8.h"
#include "platform/win32/wide.h"

namespace {

using namespace keyscout;

/// Files and other programs get and give the same bytes as on every system. A console keeps its
/// line ends and its Ctrl+Z.
void passBytesAsTheyAre() {
  for (const auto stream : {StandardStream::input, StandardStream::output, StandardStream::error})
    if (!isTerminal(stream)) _setmode(static_cast<int>(stream), _O_BINARY);
}

/// Has the console, where there is one, speak UTF-8 and know the styles of `play --view`. It is
/// the shell's console too, so it gets its own settings back.
class ConsoleSettings {
 public:
  ConsoleSettings() {
    SetConsoleCP(CP_UTF8);
    SetConsoleOutputCP(CP_UTF8);
    if (hasMode_) SetConsoleMode(output_, mode_ | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
  }
  ~ConsoleSettings() {
    if (hasMode_) SetConsoleMode(output_, mode_);
    SetConsoleOutputCP(outputCodePage_);
    SetConsoleCP(inputCodePage_);
  }
  ConsoleSettings(const ConsoleSettings&) = delete;
  ConsoleSettings& operator=(const ConsoleSettings&) = delete;

 private:
  const UINT inputCodePage_ = GetConsoleCP();
  const UINT outputCodePage_ = GetConsoleOutputCP();
  const HANDLE output_ = GetStdHandle(STD_OUTPUT_HANDLE);
  DWORD mode_ = 0;
  const bool hasMode_ = GetConsoleMode(output_, &mode_) != 0;
};

int runWithArguments(int argc, wchar_t** argv) {
  std::vector<std::string> arguments;
  for (int i = 0; i < argc; ++i) arguments.push_back(toUtf8(fromWide(argv[i])));
  std::vector<const char*> pointers;
  for (const std::string& argument : arguments) pointers.push_back(argument.c_str());
  return runProgram(argc, pointers.data());
}

}  // namespace

extern "C" int wmain(int argc, wchar_t** argv) {
  passBytesAsTheyAre();
  int status = 0;
  {
    const ConsoleSettings settings;
    status = runWithArguments(argc, argv);
  }
  Interruption::finish();
  return status;
}
