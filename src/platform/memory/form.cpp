#include "platform/memory/form.h"

#include "platform/error.h"
#include "platform/letter_case.h"
#include "platform/memory/memory_surface.h"
#include "platform/widgets.h"

namespace keyscout {

MemorySurface* Form::focusedSurface() const {
  // Only surfaces of this toolkit are ever given the focus here.
  return static_cast<MemorySurface*>(tracker_.focus().control);
}

void Form::moveFocus(MemorySurface& surface, FocusPlace place) {
  if (place == FocusPlace::list && !surface.list())
    throw platformFailure(PlatformError::objectNotSet, u"Form");
  tracker_.moveTo(surface, place);
}

void Form::type(char16_t character) {
  const auto keyCode = static_cast<std::int16_t>(upperCase(character));
  keyDown(keyCode, 0, character);
  keyUp(keyCode, 0);
}

void Form::pressKey(std::int16_t keyCode, std::int16_t shift) {
  keyDown(keyCode, shift, characterOf(keyCode));
  keyUp(keyCode, shift);
}

char16_t Form::characterOf(std::int16_t keyCode) {
  return keyCode == KeyCodes::enter ? u'\r' : u'\0';
}

void Form::keyDown(std::int16_t keyCode, std::int16_t shift, char16_t character) {
  MemorySurface* const surface = focusedSurface();
  if (surface && !surface->keyDown(tracker_.focus().place, keyCode, shift)) return;
  // A handler may have moved the focus: the character goes to what has it now.
  const bool hasCharacter = character != 0 && (shift & (Modifier::ctrl | Modifier::alt)) == 0;
  MemorySurface* const next = focusedSurface();
  if (next && hasCharacter) next->keyPress(tracker_.focus().place, character);
}

void Form::keyUp(std::int16_t keyCode, std::int16_t shift) {
  MemorySurface* const surface = focusedSurface();
  if (surface) surface->keyUp(tracker_.focus().place, keyCode, shift);
}

void Form::paste(StringView text) {
  MemorySurface* const surface = focusedSurface();
  if (surface) surface->textBox().paste(text);
}

}  // namespace keyscout
