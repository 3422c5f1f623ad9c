#pragma once

#include <windows.h>

#include <vector>

#include "platform/playable.h"

namespace keyscout {

class Win32FormSurface;

/// A window with controls of real widgets on it, played on by the messages that a keyboard and a
/// mouse send. They go to the widgets at once, without the message queue, so that nothing else that
/// happens on the screen comes between. What the widgets do with them is theirs: Up moves the caret
/// of a text box, Escape closes a list, a page is as long as the list is high.
class Win32Form final : public PlayableForm {
 public:
  Win32Form();
  ~Win32Form() override;
  Win32Form(const Win32Form&) = delete;
  Win32Form& operator=(const Win32Form&) = delete;

  HWND window() const { return window_; }
  /// A surface is on the form from its construction to its destruction.
  void add(Win32FormSurface& surface) { surfaces_.push_back(&surface); }
  void remove(Win32FormSurface& surface) { std::erase(surfaces_, &surface); }

  std::unique_ptr<PlayableSurface> addSurface() override;
  PlayableSurface* focusedSurface() const override;
  void moveFocus(PlayableSurface& surface, FocusPlace place) override;
  void leaveFocus() override;
  void type(char16_t character) override;
  void keyDown(std::int16_t keyCode, std::int16_t shift) override;
  void keyUp(std::int16_t keyCode, std::int16_t shift) override;
  void paste(StringView text) override;

 private:
  Win32FormSurface* focused() const;
  void keyDown(std::int16_t keyCode, std::int16_t shift, char16_t character);

  HWND window_;
  std::vector<Win32FormSurface*> surfaces_;
};

}  // namespace keyscout
