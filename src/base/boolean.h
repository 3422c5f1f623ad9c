#pragma once

#include <concepts>
#include <cstdint>

namespace keyscout {

/// A 16-bit truth value: true is -1, false is 0, and any other number tests true as well.
/// The number is kept as given, so a host that stores 5 reads 5 back.
class Boolean {
 public:
  constexpr Boolean() = default;
  constexpr Boolean(std::same_as<bool> auto truth) : number_(truth ? -1 : 0) {}

  static constexpr Boolean stored(std::int16_t number) {
    Boolean result;
    result.number_ = number;
    return result;
  }

  constexpr std::int16_t number() const { return number_; }
  constexpr explicit operator bool() const { return number_ != 0; }
  friend constexpr bool operator==(Boolean, Boolean) = default;

 private:
  std::int16_t number_ = 0;
};

inline constexpr Boolean True{true};
inline constexpr Boolean False{false};

}  // namespace keyscout
