#pragma once

#include "support/test_form.h"

namespace keyscout {

/// What a thread of its own, with an apartment of its own, was answered by a controller.
struct OtherThreadsAnswer {
  HRESULT marshaled = E_FAIL;
  HRESULT unmarshaled = E_FAIL;
  HRESULT put = E_FAIL;
  HRESULT got = E_FAIL;
  std::string directory;
};

/// Has another thread set the directory of `controller`, an object of the calling thread, to
/// "C:\\elsewhere" and read it.
OtherThreadsAnswer askFromOtherThread(_RWKeyscoutController& controller);

}  // namespace keyscout
