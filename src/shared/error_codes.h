#pragma once

#include <cstdint>

namespace keyscout {

/// The numbers of the errors that the controller raises to the host.
enum class KeyscoutErrorCodes : std::int32_t {
  RequiredFilesMissing = -2147218504,
  CatalogFormatChanged = -2147218503,
  InconsistantVersion = -2147218502,
  ControlStatusInProcess = -2147218501,
  ControlStatusCorrupt = -2147218500,
  AuthenticationFailed = -2147218499,
  CatalogFilesOld = -2147218498,
};

}  // namespace keyscout
