#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/focus_tracker.h"
#include "platform/widgets.h"

namespace keyscout {

// A toolkit as a script or a test plays on it: what a person does to a form, and what a person
// sees. The same session can so be played on widgets in memory and on real ones.

enum class MouseReport { down, move, up, click, doubleClick };

/// The place of one control on a form that is played on, 100 wide at first and without the focus.
class PlayableSurface : public ControlSurface {
 public:
  struct ListView {
    std::vector<String> entries;
    std::int16_t selected = -1;
    bool isDropped = false;
    bool redraws = true;
  };

  /// The drop-down list, absent while there is none.
  virtual std::optional<ListView> listView() const = 0;
  /// Which of its places has the focus, absent where none has.
  virtual std::optional<FocusPlace> focusPlace() const = 0;

  virtual void resize(float width) = 0;
  /// A mouse click on an entry of the drop-down list, which must have it.
  virtual void click(std::int16_t entry) = 0;
  /// A mouse report of the text box.
  virtual void mouse(MouseReport report, std::int16_t button, std::int16_t shift, float x,
                     float y) = 0;

  /// Names who is told when the person closed the list without choosing from it, as by Escape: not
  /// the control, so a host closes its list then. Never called by toolkits that cannot do that.
  virtual void whenListIsClosed(const std::function<void()>& /*tell*/) {}
};

/// A form and the person before it. Keys and pasted text go to what has the focus, and are lost
/// while nothing has it.
class PlayableForm {
 public:
  virtual ~PlayableForm() = default;

  /// A place for one more control. It must be gone before the form is.
  virtual std::unique_ptr<PlayableSurface> addSurface() = 0;
  /// The control that has the focus, in any of its places; null where none has.
  virtual PlayableSurface* focusedSurface() const = 0;

  /// Fails with object not set (91) where the list is to get the focus and there is none.
  virtual void moveFocus(PlayableSurface& surface, FocusPlace place) = 0;
  virtual void leaveFocus() = 0;

  /// Key down, character and key up of one typed character, whose key code is that of its
  /// upper-case form.
  virtual void type(char16_t character) = 0;
  /// The two halves of any other key, of which only Enter has a character; the first takes in the
  /// key's own effect and its character.
  virtual void keyDown(std::int16_t keyCode, std::int16_t shift) = 0;
  virtual void keyUp(std::int16_t keyCode, std::int16_t shift) = 0;
  /// Replaces the selected text of the focused control's text box in one change.
  virtual void paste(StringView text) = 0;
};

}  // namespace keyscout
