#pragma once

#include <string>

#include "base/text.h"

namespace keyscout {

// Text on a terminal takes columns, not characters: a wide character takes two of them and a
// combining one none.

/// `text` in the wide characters of the terminal library, one for each code point. What has no
/// place on a screen (a control character, half of a pair) becomes U+FFFD.
std::wstring toCodePoints(StringView text);

/// How many columns `text` takes.
int columnsOf(const std::wstring& text);

/// `text` in exactly `width` columns: cut between characters or filled up with blanks.
std::wstring fitted(const std::wstring& text, int width);

}  // namespace keyscout
