#include "platform/win32/system_code_page.h"

#include <windows.h>

namespace keyscout {
namespace {

bool hasOneByteCharacters() {
  CPINFO info{};
  return GetCPInfo(CP_ACP, &info) && info.MaxCharSize == 1;
}

CodePage unitsOfSystem() {
  if (!hasOneByteCharacters()) return windows1252();

  std::array<char16_t, 256> units{};
  for (std::size_t byte = 0; byte < units.size(); ++byte) {
    const char source = static_cast<char>(byte);
    wchar_t unit = 0;
    const bool known = MultiByteToWideChar(CP_ACP, 0, &source, 1, &unit, 1) == 1;
    units[byte] = known ? static_cast<char16_t>(unit) : static_cast<char16_t>(byte);
  }
  return CodePage{units};
}

}  // namespace

const CodePage& systemCodePage() {
  static const CodePage page = unitsOfSystem();
  return page;
}

unsigned systemCodePageNumber() { return hasOneByteCharacters() ? GetACP() : 1252; }

}  // namespace keyscout
