#pragma once

#include "base/code_page.h"

namespace keyscout {

/// What the bytes of data files stand for: on Windows what they stand for in the control, too.
const CodePage& nativeCodePage();
/// The number that Windows gives it, 1252 for example.
unsigned nativeCodePageNumber();

}  // namespace keyscout
