#include "server/windows_platform.h"

#include <memory>

#include "platform/local/local_library.h"
#include "platform/local/system_clock.h"
#include "platform/win32/debugger_trace.h"
#include "platform/win32/system_code_page.h"
#include "platform/win32/win32_files.h"
#include "platform/win32/win32_message_box.h"
#include "platform/win32/win32_text_rules.h"

namespace keyscout {

Platform& windowsPlatform() {
  static Win32Files files;
  static SystemClock clock;
  static Win32TextRules textRules;
  static Win32MessageBox messageBox;
  static LocalLibrary library{std::make_shared<DebuggerTrace>()};
  static Platform platform{files, clock, systemCodePage(), textRules, messageBox, library};
  return platform;
}

}  // namespace keyscout
