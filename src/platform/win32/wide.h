#pragma once

#include <windows.h>

#include <string>

#include "base/text.h"

namespace keyscout {

// Windows writes its UTF-16 as wchar_t. Both types are 16 bits wide there, and neither aliases the
// other, so text is copied from one to the other.

inline std::wstring toWide(StringView text) { return {text.begin(), text.end()}; }
inline String fromWide(std::wstring_view text) { return {text.begin(), text.end()}; }

}  // namespace keyscout
