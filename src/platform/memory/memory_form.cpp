#include "platform/memory/memory_form.h"

#include "base/error.h"
#include "base/letter_case.h"
#include "platform/memory/memory_surface.h"
#include "platform/widgets.h"

namespace keyscout {

std::unique_ptr<PlayableSurface> MemoryForm::addSurface() {
  return std::make_unique<MemorySurface>(*this);
}

MemorySurface* MemoryForm::focused() const {
  // Only surfaces in memory are ever given the focus here.
  return static_cast<MemorySurface*>(tracker_.focus().control);
}

PlayableSurface* MemoryForm::focusedSurface() const { return focused(); }

void MemoryForm::moveFocus(PlayableSurface& surface, FocusPlace place) {
  auto& target = static_cast<MemorySurface&>(surface);
  if (place == FocusPlace::list && !target.hasList())
    throw platformFailure(PlatformError::objectNotSet, u"MemoryForm");
  tracker_.moveTo(target, place);
}

void MemoryForm::type(char16_t character) {
  const auto keyCode = static_cast<std::int16_t>(upperCase(character));
  keyDown(keyCode, 0, character);
  keyUp(keyCode, 0);
}

void MemoryForm::keyDown(std::int16_t keyCode, std::int16_t shift) {
  keyDown(keyCode, shift, keyCode == KeyCodes::enter ? u'\r' : u'\0');
}

void MemoryForm::keyDown(std::int16_t keyCode, std::int16_t shift, char16_t character) {
  tracker_.inputArrives();
  MemorySurface* const surface = focused();
  if (!surface || !surface->keyDown(tracker_.focus().place, keyCode, shift)) return;
  // A handler may have moved the focus: the character goes to what has it now.
  const bool hasCharacter = character != 0 && (shift & (Modifier::ctrl | Modifier::alt)) == 0;
  MemorySurface* const next = focused();
  if (next && hasCharacter) next->keyPress(tracker_.focus().place, character);
}

void MemoryForm::keyUp(std::int16_t keyCode, std::int16_t shift) {
  tracker_.inputArrives();
  if (MemorySurface* const surface = focused())
    surface->keyUp(tracker_.focus().place, keyCode, shift);
}

void MemoryForm::paste(StringView text) {
  tracker_.inputArrives();
  if (MemorySurface* const surface = focused()) surface->textBox().paste(text);
}

}  // namespace keyscout
