#pragma once

#include <memory>

#include "platform/decorators/call_hook.h"
#include "platform/playable.h"

namespace keyscout {

/// The widgets that a session is played on: in memory, or the real ones of Windows.
enum class Widgets { memory, win32 };

/// True where this program was built for `widgets`.
bool hasWidgets(Widgets widgets);

/// A form of `widgets`, which the program must have. `hook` is told of the calls on widgets in
/// memory.
std::unique_ptr<PlayableForm> makeForm(Widgets widgets, CallHook& hook);

}  // namespace keyscout
