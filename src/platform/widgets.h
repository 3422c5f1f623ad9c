#pragma once

#include <cstdint>

#include "base/boolean.h"
#include "base/text.h"

namespace keyscout {

// The widgets that a control consists of, and the reports with which they call it.
//
// The order of reports is a promise that every toolkit keeps: a change made by code (text written,
// entry selected, drop-down closed) is reported at once, inside the operation that made it; a
// change of focus takes effect at once and is reported after the outermost handler has returned;
// key down, character and key up of one key come in that order, each to the widget that has the
// focus at that moment. Input that comes while a handler runs, since somebody runs a message loop
// inside it, finds all changes of focus before it reported. Lengths and positions are in the
// toolkit's own units.

/// Shift keys in the modifier mask of a key or mouse report, added together.
namespace Modifier {
inline constexpr std::int16_t shift = 1;
inline constexpr std::int16_t ctrl = 2;
inline constexpr std::int16_t alt = 4;
}  // namespace Modifier

/// Codes of the keys that mean something to a control or a widget.
namespace KeyCodes {
inline constexpr std::int16_t backspace = 8;
inline constexpr std::int16_t tab = 9;
inline constexpr std::int16_t enter = 13;
inline constexpr std::int16_t escape = 27;
inline constexpr std::int16_t pageUp = 33;
inline constexpr std::int16_t pageDown = 34;
inline constexpr std::int16_t end = 35;
inline constexpr std::int16_t home = 36;
inline constexpr std::int16_t left = 37;
inline constexpr std::int16_t up = 38;
inline constexpr std::int16_t right = 39;
inline constexpr std::int16_t down = 40;
inline constexpr std::int16_t deleteKey = 46;
}  // namespace KeyCodes

/// What a text box reports. Arguments by reference are the toolkit's own: what the observer leaves
/// in them is what the text box goes on with.
class TextBoxObserver {
 public:
  virtual ~TextBoxObserver() = default;

  virtual void changed() = 0;
  virtual void keyDown(std::int16_t& keyCode, std::int16_t& shift) = 0;
  virtual void keyPress(std::int16_t& character) = 0;
  virtual void keyUp(std::int16_t& keyCode, std::int16_t& shift) = 0;
  virtual void clicked() = 0;
  virtual void doubleClicked() = 0;
  virtual void mouseDown(std::int16_t& button, std::int16_t& shift, float& x, float& y) = 0;
  virtual void mouseMoved(std::int16_t& button, std::int16_t& shift, float& x, float& y) = 0;
  virtual void mouseUp(std::int16_t& button, std::int16_t& shift, float& x, float& y) = 0;
  virtual void gotFocus() = 0;
  virtual void lostFocus() = 0;
};

class DropDownListObserver {
 public:
  virtual ~DropDownListObserver() = default;

  virtual void keyDown(std::int16_t& keyCode, std::int16_t& shift) = 0;
  virtual void keyUp(std::int16_t& keyCode, std::int16_t& shift) = 0;
  /// The selection changed: a click on an entry, a key, or code that set the selected index.
  virtual void clicked() = 0;
  /// The text of the list's own edit part changed, by a character that a person typed. Where the
  /// same control's text box has the focus afterwards, the character goes on to it.
  virtual void editChanged() = 0;
};

/// What the control's own surface reports.
class SurfaceObserver {
 public:
  virtual ~SurfaceObserver() = default;

  virtual void resized() = 0;
  /// The surface itself, without a widget of it, lost the focus.
  virtual void lostFocus() = 0;
  /// The focus left the control and all its widgets.
  virtual void focusLeft() = 0;
};

class TextBox {
 public:
  virtual ~TextBox() = default;

  virtual String text() const = 0;
  virtual void setText(StringView text) = 0;

  /// In UTF-16 code units. Setting the start sets the length to 0; what lies beyond the end is
  /// clipped, a negative value fails with invalid property value (380).
  virtual std::int32_t selStart() const = 0;
  virtual void setSelStart(std::int32_t start) = 0;
  virtual std::int32_t selLength() const = 0;
  virtual void setSelLength(std::int32_t length) = 0;

  virtual void setFocus() = 0;

  virtual Boolean enabled() const = 0;
  virtual void setEnabled(Boolean enabled) = 0;
  virtual Boolean readOnly() const = 0;
  virtual void setReadOnly(Boolean readOnly) = 0;
  virtual std::int32_t foreColor() const = 0;
  virtual void setForeColor(std::int32_t color) = 0;
  virtual std::int32_t backColor() const = 0;
  virtual void setBackColor(std::int32_t color) = 0;
  virtual Boolean fontBold() const = 0;
  virtual void setFontBold(Boolean bold) = 0;
  virtual String toolTipText() const = 0;
  virtual void setToolTipText(StringView text) = 0;

  virtual float left() const = 0;
  virtual float top() const = 0;
  virtual float width() const = 0;
  virtual void setWidth(float width) = 0;
  virtual void bringToFront() = 0;
};

/// A drop-down combo list. An entry number out of range fails with invalid argument (5) and
/// changes nothing; an index of -1 means that no entry is selected.
class DropDownList {
 public:
  virtual ~DropDownList() = default;

  virtual void setLeft(float left) = 0;
  virtual void setTop(float top) = 0;
  virtual void setWidth(float width) = 0;
  virtual void setTabStop(Boolean tabStop) = 0;
  virtual void setVisible(Boolean visible) = 0;

  virtual std::int16_t entryCount() const = 0;
  virtual void append(StringView entry) = 0;
  virtual void removeFirst() = 0;
  virtual void clear() = 0;
  virtual String entryText(std::int16_t entry) const = 0;
  virtual std::int16_t selectedIndex() const = 0;
  /// Reports one click, also where the entry is selected already. Selecting entry 0 of a list
  /// without entries selects nothing and reports nothing.
  virtual void select(std::int16_t entry) = 0;

  virtual void setFocus() = 0;

  /// Opens or closes the drop-down part (window message CB_SHOWDROPDOWN). Closing a shown one
  /// reports a click where an entry is selected.
  virtual void showDropDown(bool show) = 0;
  /// Stops or resumes drawing (window message WM_SETREDRAW).
  virtual void setRedraw(bool redraw) = 0;
};

/// The surface on which a control lives: a child of the host's form. It owns the widgets.
class ControlSurface {
 public:
  virtual ~ControlSurface() = default;

  /// Names the observers of the surface and its text box; null ones end the reports, which a
  /// control does before it is gone.
  virtual void setObservers(SurfaceObserver* surface, TextBoxObserver* textBox) = 0;
  virtual TextBox& textBox() = 0;

  /// Creates a drop-down list named `name` that reports to `observer`, invisible and at the
  /// surface's origin. The list lives until it is removed or the surface is gone.
  virtual DropDownList& addDropDownList(StringView name, DropDownListObserver& observer) = 0;
  /// Removes the child widget named `name`; fails with invalid argument (5) where there is none.
  virtual void removeChild(StringView name) = 0;

  virtual float width() const = 0;
  virtual void setEnabled(Boolean enabled) = 0;
  /// The shape of the mouse pointer over the surface; 0 is the toolkit's own choice.
  virtual void setMousePointer(std::int16_t shape) = 0;

  /// Begins and ends a call of the host into the control, during which reports of focus wait as
  /// they do in a handler. Calls nest.
  virtual void beginHostCall() = 0;
  virtual void endHostCall() noexcept = 0;
};

/// A call of the host into a control, for as long as it lives.
class [[nodiscard]] HostCall {
 public:
  explicit HostCall(ControlSurface& surface) : surface_(surface) { surface_.beginHostCall(); }
  ~HostCall() { surface_.endHostCall(); }
  HostCall(const HostCall&) = delete;
  HostCall& operator=(const HostCall&) = delete;

 private:
  ControlSurface& surface_;
};

}  // namespace keyscout
