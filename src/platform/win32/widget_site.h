#pragma once

#include <windows.h>

#include <functional>

#include "platform/focus_tracker.h"
#include "platform/win32/busy_count.h"
#include "platform/win32/text_look.h"

namespace keyscout {

/// What a widget asks of the surface that it stands on, and tells it. A message of a widget's
/// window is work of the surface.
class WidgetSite : public BusyCount {
 public:
  virtual FocusTracker& focusTracker() = 0;
  virtual const TextLook& look() const = 0;

  /// A window of the widget got the focus, or lost it to `next`, which may be null.
  virtual void focusCame(FocusPlace place) = 0;
  virtual void focusGoes(HWND next) = 0;

  /// The drop-down opened or closed.
  virtual void listOpenedOrClosed() = 0;
  virtual void listClosedByUser() = 0;
  /// Whether the list is open; if so it has scrolled by the wheel message given.
  virtual bool scrollList(WPARAM wParam, LPARAM lParam) = 0;
  /// Runs `move`, which takes the focus away from the list, and leaves the list open if it was.
  virtual void keepListOpen(const std::function<void()>& move) = 0;

  /// The answer to WM_GETDLGCODE, whose last parameter names the message in question.
  virtual LRESULT dialogCode(LPARAM lParam) const = 0;
  /// Takes a widget's window out of sight, and destroys it when no message of it is being worked
  /// on.
  virtual void retireWindow(HWND window) = 0;

 protected:
  ~WidgetSite() = default;
};

}  // namespace keyscout
