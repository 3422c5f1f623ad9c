#pragma once

#include <string>
#include <string_view>

#include "base/code_page.h"
#include "base/text.h"

namespace keyscout {

/// `text` in UTF-8 as a terminal may be given it: what would steer the terminal is written out, as
/// \x1B.
std::string visible(StringView text);
/// The same for text that is UTF-8 already.
std::string visible(std::string_view utf8);

/// The same in quotation marks, and no longer than a sentence bears: what a file holds may be of
/// any length.
std::string inQuotes(StringView text);
/// Bytes of `page`.
std::string inQuotes(std::string_view bytes, const CodePage& page);

}  // namespace keyscout
