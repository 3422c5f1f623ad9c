#pragma once

#include <cstdint>

#include "platform/focus_tracker.h"
#include "platform/memory/call_hook.h"
#include "platform/text.h"

namespace keyscout {

class MemorySurface;

/// A form without a screen: the controls on it, the focus, and a person at keyboard and mouse.
/// Controls put themselves on the form and leave it by their own construction and destruction.
class Form {
 public:
  /// `hook`, where there is one, is told of every call that code makes on a widget.
  explicit Form(CallHook* hook = nullptr) : hook_(hook) {}
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  FocusTracker& focusTracker() { return tracker_; }
  void onCall(std::string_view operation) {
    if (hook_) hook_->onCall(operation);
  }

  /// The control that has the focus, in any of its places; null where none has.
  MemorySurface* focusedSurface() const;

  // What a person does. Keys and pasted text go to what has the focus, and are lost without it.

  /// Fails with object not set (91) where the list is to get the focus and there is none.
  void moveFocus(MemorySurface& surface, FocusPlace place);
  void leaveFocus() { tracker_.leave(); }

  /// Key down, character and key up of one typed character.
  void type(char16_t character);
  void pressKey(std::int16_t keyCode, std::int16_t shift);
  /// The two halves of a key; the first takes in the key's own effect and its `character`, 0 for
  /// none.
  void keyDown(std::int16_t keyCode, std::int16_t shift, char16_t character);
  void keyUp(std::int16_t keyCode, std::int16_t shift);
  /// The character that a key other than a typed one has, 0 for none.
  static char16_t characterOf(std::int16_t keyCode);
  void paste(StringView text);

 private:
  FocusTracker tracker_;
  CallHook* hook_;
};

}  // namespace keyscout
