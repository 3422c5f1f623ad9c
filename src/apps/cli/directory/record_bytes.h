#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace keyscout {

/// The code page that catalogs are written and read in, by its name.
std::string nameOfCodePage();

/// What the bytes of a record hold that no catalog means, in words: a control character, which a
/// terminal obeys, or a byte that is no character of that code page. Nothing where they are text.
std::optional<std::string> strangeCharacterIn(std::string_view bytes);

/// True for bytes that are UTF-8 and not only ASCII. Read by that code page their letters come
/// apart and their columns are wrong.
bool isUtf8BeyondAscii(std::string_view bytes);

}  // namespace keyscout
