#include "support/input.h"

namespace keyscout {

void sendInput(const INPUT& input) {
  INPUT copy = input;
  SendInput(1, &copy, sizeof copy);
}

INPUT keyInput(WORD key, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = flags;
  return input;
}

INPUT mouseInput(DWORD flags) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = flags;
  return input;
}

void pressKey(WORD key, WORD modifier) {
  if (modifier) sendInput(keyInput(modifier, 0));
  sendInput(keyInput(key, 0));
  sendInput(keyInput(key, KEYEVENTF_KEYUP));
  if (modifier) sendInput(keyInput(modifier, KEYEVENTF_KEYUP));
}

}  // namespace keyscout
