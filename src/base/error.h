#pragma once

#include <cstdint>
#include <exception>
#include <string>

#include "base/text.h"

namespace keyscout {

/// The platform's own error numbers, as a host knows them.
namespace PlatformError {
inline constexpr std::int32_t invalidArgument = 5;
inline constexpr std::int32_t overflow = 6;
inline constexpr std::int32_t outOfMemory = 7;
inline constexpr std::int32_t subscriptOutOfRange = 9;
inline constexpr std::int32_t typeMismatch = 13;
inline constexpr std::int32_t fileNotFound = 53;
inline constexpr std::int32_t permissionDenied = 70;
inline constexpr std::int32_t fileAccess = 75;
inline constexpr std::int32_t pathNotFound = 76;
inline constexpr std::int32_t objectNotSet = 91;
inline constexpr std::int32_t invalidPropertyValue = 380;
inline constexpr std::int32_t keyAlreadyPresent = 457;
}  // namespace PlatformError

/// The one exception type of the component: what went wrong as a number, the class in which it
/// went wrong, and a sentence.
class Error : public std::exception {
 public:
  Error(std::int32_t number, StringView source, StringView description);

  std::int32_t number() const { return number_; }
  const String& source() const { return source_; }
  const String& description() const { return description_; }

  /// The description in UTF-8, for hosts that only know std::exception.
  const char* what() const noexcept override { return what_.c_str(); }

 private:
  friend Error currentError() noexcept;
  explicit Error(std::int32_t number) noexcept : number_(number) {}

  std::int32_t number_;
  String source_;
  String description_;
  std::string what_;
};

/// A failure with a platform number and that number's own sentence.
Error platformFailure(std::int32_t number, StringView source);

/// The exception being handled, as an `Error`: an `Error` as it is, a foreign exception under the
/// platform number nearest to it. Call it inside a catch block only. Where memory does not even
/// allow that, the result carries the number alone.
Error currentError() noexcept;

}  // namespace keyscout
