#pragma once

#include <string>
#include <string_view>

#include "base/text.h"

namespace keyscout {

/// UTF-16 to UTF-8. A surrogate without its partner becomes U+FFFD.
std::string toUtf8(StringView text);

/// UTF-8 to UTF-16. Bytes that are no UTF-8 become U+FFFD, one each.
String fromUtf8(std::string_view bytes);

}  // namespace keyscout
