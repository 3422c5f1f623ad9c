#include "platform/win32/debugger_trace.h"

#include <windows.h>

#include "base/utf8.h"
#include "platform/win32/wide.h"

namespace keyscout {

void DebuggerTrace::record(TraceCall call) {
  if (IsDebuggerPresent()) OutputDebugStringW(toWide(fromUtf8(lineOf(call) + '\n')).c_str());
}

}  // namespace keyscout
