#include "server/com/failures.h"

#include <oleauto.h>

#include "base/failure_handling.h"
#include "server/com/com_ptr.h"
#include "server/com/values.h"

namespace keyscout {
namespace {

/// A platform number becomes the result that hosts turn back into that number.
HRESULT resultOf(const Error& error) {
  if (error.hasNumber(PlatformError::outOfMemory)) return E_OUTOFMEMORY;
  const std::int32_t number = error.number();
  constexpr std::uint32_t platformNumbers = 0x800A0000;
  if (number >= 0 && number <= 0xFFFF)
    return static_cast<HRESULT>(platformNumbers | static_cast<std::uint32_t>(number));
  return number;
}

void leaveErrorInformation(const Error& error, REFIID interfaceId) {
  ComPtr<ICreateErrorInfo> information;
  if (FAILED(CreateErrorInfo(information.put()))) return;
  information->SetGUID(interfaceId);
  information->SetSource(Bstr{error.source()}.get());
  information->SetDescription(Bstr{error.description()}.get());
  const auto readable = ComPtr<IErrorInfo>::from(information.get());
  SetErrorInfo(0, readable.get());
}

}  // namespace

HRESULT currentFailure(REFIID interfaceId) noexcept {
  SetErrorInfo(0, nullptr);
  try {
    throw;
  } catch (const ComFailure& failure) {
    return failure.result;
  } catch (...) {
    const Error error = currentError();
    // The number goes out all the same.
    ignoringFailure([&] { leaveErrorInformation(error, interfaceId); });
    return resultOf(error);
  }
}

}  // namespace keyscout
