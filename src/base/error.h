#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <type_traits>

#include "base/text.h"

namespace keyscout {

/// The platform's own error numbers, as a host knows them.
enum class PlatformError : std::int32_t {
  invalidArgument = 5,
  overflow = 6,
  outOfMemory = 7,
  subscriptOutOfRange = 9,
  typeMismatch = 13,
  fileNotFound = 53,
  permissionDenied = 70,
  fileAccess = 75,
  pathNotFound = 76,
  objectNotSet = 91,
  invalidPropertyValue = 380,
  keyAlreadyPresent = 457,
};

/// The one exception type of the component: what went wrong as a number, the class in which it
/// went wrong, and a sentence.
class Error : public std::exception {
 public:
  Error(std::int32_t number, StringView source, StringView description);

  std::int32_t number() const { return number_; }
  /// True when the number is this one of an enumeration's.
  template <class Enum>
  requires std::is_enum_v<Enum>
  bool hasNumber(Enum number) const { return number_ == static_cast<std::int32_t>(number); }
  const String& source() const { return source_; }
  const String& description() const { return description_; }

  /// The description in UTF-8, for hosts that only know std::exception.
  const char* what() const noexcept override { return what_.c_str(); }

 private:
  friend Error currentError() noexcept;
  explicit Error(PlatformError number) noexcept : number_(static_cast<std::int32_t>(number)) {}

  std::int32_t number_;
  String source_;
  String description_;
  std::string what_;
};

/// A failure with a platform number and that number's own sentence.
Error platformFailure(PlatformError number, StringView source);

/// The exception being handled, as an `Error`: an `Error` as it is, a foreign exception under the
/// platform number nearest to it. Call it inside a catch block only. Where memory does not even
/// allow that, the result carries the number alone.
Error currentError() noexcept;

}  // namespace keyscout
