#pragma once

#include <cstddef>
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

/// Where the character begins that ends before `at`, and where the one ends that begins there: what
/// a person takes for one, with its marks, however many code units it is. `at` itself at the ends.
std::size_t characterBefore(StringView text, std::size_t at);
std::size_t characterBehind(StringView text, std::size_t at);

/// `text` in exactly `width` columns, with an ellipsis at its end where it is cut.
std::wstring shortened(const std::wstring& text, int width);

/// `text` in exactly `width` columns: cut between characters or filled up with blanks.
std::wstring fitted(const std::wstring& text, int width);

}  // namespace keyscout
