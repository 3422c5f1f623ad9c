#pragma once

#include <memory>

#include "platform/decorators/call_hook.h"
#include "platform/playable.h"

namespace keyscout::test {

/// A form of the toolkit that the tests were built for. `hook`, null for none, is told of the calls
/// on its widgets where the toolkit can do that.
std::unique_ptr<PlayableForm> makeForm(CallHook* hook = nullptr);

}  // namespace keyscout::test
