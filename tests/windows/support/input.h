#pragma once

#include <windows.h>

namespace keyscout {

/// Hands one piece of input to the system, for the window that is in front.
void sendInput(const INPUT& input);
INPUT keyInput(WORD key, DWORD flags);
INPUT mouseInput(DWORD flags);

/// A key goes down and up, with a modifier held where one is given.
void pressKey(WORD key, WORD modifier = 0);

}  // namespace keyscout
