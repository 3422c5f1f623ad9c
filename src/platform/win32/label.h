#pragma once

#include <windows.h>

#include <string>

namespace keyscout {

/// The text of the label that stands before `window` in the order of the form, as its reader hears
/// it: without the mark of a mnemonic. Empty where something else stands there.
std::wstring labelBefore(HWND window);

}  // namespace keyscout
