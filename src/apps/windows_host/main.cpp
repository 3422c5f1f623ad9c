// keyscout_host [--right-to-left] [DIRECTORY]: a form with two lookup controls on the catalog data
// in DIRECTORY, or in the folder "sample" beside the program's own. Finds keyscout.dll by the
// manifest Keyscout.Lookup in its own folder, else by its registration.

#include <windows.h>

#include <ole2.h>
#include <shellapi.h>

#include <string>

#include "apps/windows_host/host_form.h"
#include "platform/win32/instance.h"
#include "server/com/failures.h"

namespace {

std::wstring sampleDirectory() {
  const std::wstring path = keyscout::modulePath(nullptr);
  return path.substr(0, path.find_last_of(L'\\') + 1) + L"..\\sample";
}

struct Options {
  std::wstring directory = sampleDirectory();
  bool rightToLeft = false;
};

Options optionsFromArguments() {
  Options options;
  int count = 0;
  wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 1; i < count; ++i) {
    const std::wstring argument = arguments[i];
    if (argument == L"--right-to-left")
      options.rightToLeft = true;
    else
      options.directory = argument;
  }
  LocalFree(arguments);
  return options;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  if (FAILED(OleInitialize(nullptr))) return 1;
  int status = 0;
  try {
    const Options options = optionsFromArguments();
    keyscout::HostForm form{options.directory, options.rightToLeft};
    form.run();
  } catch (const keyscout::ComFailure& failure) {
    const std::wstring text =
        L"The form could not be set up. Is keyscout.dll beside the program?\nError " +
        std::to_wstring(failure.result);
    MessageBoxW(nullptr, text.c_str(), L"Keyscout sample host", MB_OK | MB_ICONERROR);
    status = 1;
  }
  OleUninitialize();
  return status;
}
