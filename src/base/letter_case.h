#pragma once

#include "base/text.h"

namespace keyscout {

/// The upper-case form of one UTF-16 code unit, one unit for one unit and the same on every
/// system: Latin, Greek and Cyrillic letters; every other unit stands for itself.
char16_t upperCase(char16_t unit);

String upperCase(StringView text);

/// True when both texts have the same upper-case form.
bool equalIgnoringCase(StringView a, StringView b);

}  // namespace keyscout
