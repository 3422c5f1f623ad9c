#pragma once

#include "base/code_page.h"

namespace keyscout {

/// What the bytes of data files stand for: on Windows what they stand for in the control, too.
const CodePage& nativeCodePage();

}  // namespace keyscout
