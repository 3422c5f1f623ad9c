#include "base/numbers.h"

#include <limits>
#include <string>

#include "base/error.h"

namespace keyscout {

String decimal(int number) {
  const std::string digits = std::to_string(number);
  return {digits.begin(), digits.end()};
}

std::int32_t parseInt32(StringView text) {
  const bool negative = text.starts_with(u'-');
  if (negative || text.starts_with(u'+')) text.remove_prefix(1);
  if (text.empty()) throw platformFailure(PlatformError::typeMismatch, u"Text");

  const std::int64_t limit = std::int64_t{std::numeric_limits<std::int32_t>::max()} + negative;
  std::int64_t value = 0;
  bool fits = true;
  for (const char16_t digit : text) {
    if (digit < u'0' || digit > u'9') throw platformFailure(PlatformError::typeMismatch, u"Text");
    if (fits) value = value * 10 + (digit - u'0');
    fits = fits && value <= limit;
  }
  if (!fits) throw platformFailure(PlatformError::overflow, u"Text");
  return static_cast<std::int32_t>(negative ? -value : value);
}

}  // namespace keyscout
