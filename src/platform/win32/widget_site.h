#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "platform/focus_tracker.h"
#include "platform/win32/busy_count.h"
#include "platform/win32/input.h"
#include "platform/win32/text_look.h"

namespace keyscout {

/// What a widget asks of the surface that it stands on, and tells it. A message of a widget's
/// window is work of the surface.
class WidgetSite : public BusyCount {
 public:
  virtual FocusTracker& focusTracker() = 0;
  virtual const TextLook& look() const = 0;

  /// To be told of each message of a widget's window, before anything is done with it.
  void messageArrives(UINT message) {
    if (isInput(message)) focusTracker().inputArrives();
  }

  /// A window of the widget got the focus, or lost it to `next`, which may be null.
  virtual void focusCame(FocusPlace place) = 0;
  virtual void focusGoes(HWND next) = 0;

  virtual void listOpens() = 0;
  virtual void listCloses() = 0;
  virtual void listClosedByUser() = 0;
  /// Whether the list is open; if so it has scrolled by the wheel message given.
  virtual bool scrollList(WPARAM wParam, LPARAM lParam) = 0;
  /// Runs `move`, which takes the focus away from the list, and leaves the list open if it was.
  virtual void keepListOpen(const std::function<void()>& move) = 0;

  /// A character has come to the list. Where the focus is in the text box by now the text box gets
  /// it as well, so that nothing typed is lost.
  virtual void characterCameToList(WPARAM character, LPARAM keyData) = 0;

  /// What a screen reader calls the widgets.
  virtual std::wstring accessibleName() const = 0;
  /// The combo box, null while there is none.
  virtual HWND listWindow() const = 0;

  /// The answer to WM_GETDLGCODE, whose last parameter names the message in question.
  virtual LRESULT dialogCode(LPARAM lParam) const = 0;
  /// Takes a widget's window out of sight, and destroys it when no message of it is being worked
  /// on.
  virtual void retireWindow(HWND window) = 0;

 protected:
  ~WidgetSite() = default;
};

}  // namespace keyscout
