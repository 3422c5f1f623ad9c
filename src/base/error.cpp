#include "base/error.h"

#include <new>
#include <stdexcept>
#include <system_error>

#include "base/utf8.h"

namespace keyscout {
namespace {

StringView sentenceOf(PlatformError number) {
  switch (number) {
    case PlatformError::invalidArgument: return u"Invalid argument";
    case PlatformError::overflow: return u"Overflow";
    case PlatformError::outOfMemory: return u"Out of memory";
    case PlatformError::subscriptOutOfRange: return u"Subscript out of range";
    case PlatformError::typeMismatch: return u"Type mismatch";
    case PlatformError::fileNotFound: return u"File not found";
    case PlatformError::permissionDenied: return u"Permission denied";
    case PlatformError::fileAccess: return u"Path or file access error";
    case PlatformError::pathNotFound: return u"Path not found";
    case PlatformError::objectNotSet: return u"Object not set";
    case PlatformError::invalidPropertyValue: return u"Invalid property value";
    case PlatformError::keyAlreadyPresent: return u"Key already present";
  }
  return u"Platform failure";
}

PlatformError numberOf(const std::exception& failure) {
  if (dynamic_cast<const std::bad_alloc*>(&failure)) return PlatformError::outOfMemory;
  if (dynamic_cast<const std::length_error*>(&failure)) return PlatformError::outOfMemory;
  if (dynamic_cast<const std::out_of_range*>(&failure)) return PlatformError::subscriptOutOfRange;
  if (dynamic_cast<const std::system_error*>(&failure)) return PlatformError::fileAccess;
  return PlatformError::invalidArgument;
}

}  // namespace

Error::Error(std::int32_t number, StringView source, StringView description)
    : number_(number), source_(source), description_(description), what_(toUtf8(description)) {}

Error platformFailure(PlatformError number, StringView source) {
  return Error{static_cast<std::int32_t>(number), source, sentenceOf(number)};
}

Error currentError() noexcept {
  PlatformError number = PlatformError::invalidArgument;
  try {
    try {
      throw;
    } catch (const Error& error) {
      number = static_cast<PlatformError>(error.number());
      return error;
    } catch (const std::exception& failure) {
      number = numberOf(failure);
      return platformFailure(number, u"Keyscout");
    } catch (...) {
      return platformFailure(number, u"Keyscout");
    }
  } catch (...) {
    return Error{number};
  }
}

}  // namespace keyscout
