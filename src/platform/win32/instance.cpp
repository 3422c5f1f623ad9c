#include "platform/win32/instance.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;  // NOLINT(bugprone-reserved-identifier): the linker's name

namespace keyscout {

HINSTANCE thisInstance() { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

std::wstring modulePath(HINSTANCE module) {
  std::wstring path(MAX_PATH, L'\0');
  while (true) {
    const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) return path.substr(0, length);
    path.resize(2 * path.size());  // it was cut
  }
}

}  // namespace keyscout
