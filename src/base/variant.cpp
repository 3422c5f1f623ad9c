#include "base/variant.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "base/error.h"
#include "base/utf8.h"

namespace keyscout {
namespace {

[[noreturn]] void mismatch() { throw platformFailure(PlatformError::typeMismatch, u"Variant"); }

std::int32_t rounded(double number) {
  const double nearest = std::nearbyint(number);
  constexpr double lowest = std::numeric_limits<std::int32_t>::min();
  constexpr double highest = std::numeric_limits<std::int32_t>::max();
  if (!(nearest >= lowest && nearest <= highest)) mismatch();
  return static_cast<std::int32_t>(nearest);
}

struct ToInt32 {
  std::int32_t operator()(std::monostate) const { mismatch(); }
  std::int32_t operator()(std::int32_t number) const { return number; }
  std::int32_t operator()(double number) const { return rounded(number); }
  std::int32_t operator()(const String& text) const {
    const std::string digits = toUtf8(trimmed(text));
    double number = 0;
    const auto [end, failure] =
        std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (failure != std::errc{} || end != digits.data() + digits.size()) mismatch();
    return rounded(number);
  }
};

}  // namespace

std::int32_t toInt32(const Variant& value) { return std::visit(ToInt32{}, value); }

}  // namespace keyscout
