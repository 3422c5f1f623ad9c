#include "platform/win32/win32_form.h"

#include "base/letter_case.h"
#include "platform/win32/input.h"
#include "platform/win32/instance.h"
#include "platform/win32/win32_form_surface.h"
#include "platform/win32/window_failure.h"

namespace keyscout {
namespace {

constexpr SIZE formSize{400, 300};
constexpr int rowHeight = 30;

/// What the system sends with a key: that it was pressed once, its place on the keyboard, and
/// whether Alt is held and the key comes up.
LPARAM keyData(UINT keyCode, std::int16_t shift, bool comesUp) {
  constexpr UINT once = 1;
  constexpr UINT altIsHeld = 1u << 29;
  constexpr UINT wasDown = 3u << 30;
  UINT data = once | MapVirtualKeyW(keyCode, MAPVK_VK_TO_VSC) << 16;
  if (shift & Modifier::alt) data |= altIsHeld;
  if (comesUp) data |= wasDown;
  return static_cast<LPARAM>(data);
}

/// Keys are sent as keys of the system while Alt is held alone.
bool isSystemKey(std::int16_t shift) {
  return (shift & (Modifier::alt | Modifier::ctrl)) == Modifier::alt;
}

/// The character of a key that is its own character.
char16_t characterOf(std::int16_t keyCode) {
  switch (keyCode) {
    case KeyCodes::backspace:
    case KeyCodes::tab:
    case KeyCodes::enter:
    case KeyCodes::escape: return static_cast<char16_t>(keyCode);
    default: return 0;
  }
}

}  // namespace

Win32Form::Win32Form()
    : window_(CreateWindowExW(
          0, L"STATIC", L"Keyscout", WS_POPUP | WS_CAPTION | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0,
          formSize.cx, formSize.cy, nullptr, nullptr, thisInstance(), nullptr)) {
  if (!window_) refuseWindow(u"Form");
}

Win32Form::~Win32Form() { DestroyWindow(window_); }

std::unique_ptr<PlayableSurface> Win32Form::addSurface() {
  // One below the other, from the top again where they are many.
  const auto row = static_cast<LONG>(surfaces_.size()) % (formSize.cy / rowHeight);
  return std::make_unique<Win32FormSurface>(*this, POINT{0, row * rowHeight});
}

Win32FormSurface* Win32Form::focused() const {
  for (Win32FormSurface* const surface : surfaces_)
    if (surface->focusPlace()) return surface;
  return nullptr;
}

PlayableSurface* Win32Form::focusedSurface() const { return focused(); }

void Win32Form::moveFocus(PlayableSurface& surface, FocusPlace place) {
  // Only surfaces of this class are ever on the form.
  static_cast<Win32FormSurface&>(surface).takeFocus(place);
}

void Win32Form::leaveFocus() { SetFocus(window_); }

void Win32Form::type(char16_t character) {
  const auto keyCode = static_cast<std::int16_t>(upperCase(character));
  keyDown(keyCode, 0, character);
  keyUp(keyCode, 0);
}

void Win32Form::keyDown(std::int16_t keyCode, std::int16_t shift) {
  const bool hasCharacter = (shift & (Modifier::ctrl | Modifier::alt)) == 0;
  keyDown(keyCode, shift, hasCharacter ? characterOf(keyCode) : u'\0');
}

void Win32Form::keyDown(std::int16_t keyCode, std::int16_t shift, char16_t character) {
  if (!focused()) return;
  const HeldModifiers held{shift};
  const auto key = static_cast<std::uint16_t>(keyCode);
  const LPARAM data = keyData(key, shift, false);
  // The system posts the character to the window that the key goes to, wherever the focus is then.
  const HWND target = GetFocus();
  SendMessageW(target, isSystemKey(shift) ? WM_SYSKEYDOWN : WM_KEYDOWN, key, data);
  if (character != 0) SendMessageW(target, WM_CHAR, character, data);
}

void Win32Form::keyUp(std::int16_t keyCode, std::int16_t shift) {
  if (!focused()) return;
  const HeldModifiers held{shift};
  const auto key = static_cast<std::uint16_t>(keyCode);
  SendMessageW(GetFocus(), isSystemKey(shift) ? WM_SYSKEYUP : WM_KEYUP, key,
               keyData(key, shift, true));
}

void Win32Form::paste(StringView text) {
  if (Win32FormSurface* const surface = focused()) surface->paste(text);
}

}  // namespace keyscout
