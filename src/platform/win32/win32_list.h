#pragma once

#include <functional>
#include <vector>

#include "platform/widgets.h"
#include "platform/win32/subclass.h"
#include "platform/win32/widget_site.h"

namespace keyscout {

/// The drop-down list of a control: a combo box behind the text box, so that its own edit part is
/// hidden and the part that drops down stands below the text box. Lengths are pixels.
///
/// What is selected is kept here as well: in an open list the entry under the mouse pointer counts
/// as the combo box's selection, and opening it makes one of its own.
class Win32List final : public DropDownList {
 public:
  Win32List(WidgetSite& site, HWND parent, DropDownListObserver& observer);
  ~Win32List() override;

  HWND window() const { return combo_.window(); }
  /// The part that drops down, a window of its own on the screen.
  HWND dropDownWindow() const { return dropDown_.window(); }
  bool isDropped() const;
  bool hasFocus() const;
  bool redraws() const { return redraws_; }
  /// Takes the list out of sight for good; its reports end.
  void retire();
  /// Closes the list and takes it out of sight, off the window that it was made on.
  void park();
  /// Makes the combo box anew on `parent`, with the entries that the present one has: a combo box
  /// keeps for good the parent that it was made with.
  void recreate(HWND parent);
  /// Applies the font and the height of the text box.
  void applyFont();
  /// Applies the direction that the surface has now.
  void applyDirection();
  /// Stands below the text box again after the surface has moved.
  void moveWithSurface();
  /// Whether the open list stands below the text box no more, since a window below the surface
  /// moved.
  bool isLeftBehind() const;
  /// Closes the list as a person does.
  void closeForUser();
  void drawEntry(const DRAWITEMSTRUCT& item) const;
  /// What the combo box tells the surface.
  void onNotification(WORD code);
  /// Puts the open list above all windows again: some systems raise a form that gets the focus.
  void raise();
  void scroll(WPARAM wParam, LPARAM lParam);
  /// Runs `move`, which takes the focus off the list, and leaves the list open if it was.
  template <class Move>
  void keepOpen(Move&& move) {
    const bool wasDropped = isDropped();
    {
      const ByCode guard{*this};
      move();
    }
    if (wasDropped && !isDropped()) showDropDown(true);
  }

  void setLeft(float left) override;
  void setTop(float top) override;
  void setWidth(float width) override;
  float width() const { return static_cast<float>(width_); }
  void setTabStop(Boolean tabStop) override;
  void setVisible(Boolean visible) override;
  std::int16_t entryCount() const override;
  void append(StringView entry) override;
  void removeFirst() override;
  void clear() override;
  String entryText(std::int16_t entry) const override;
  std::int16_t selectedIndex() const override { return selected_; }
  void select(std::int16_t entry) override;
  void setFocus() override;
  void showDropDown(bool show) override;
  void setRedraw(bool redraw) override;

 private:
  /// One of the windows that a combo box is made of.
  class Part final : public Subclass {
   public:
    using Handler = LRESULT (Win32List::*)(Part&, UINT, WPARAM, LPARAM);
    Part(Win32List& list, BusyCount& busy, Handler handler)
        : Subclass(busy), list_(list), handler_(handler) {}
    using Subclass::original;

   private:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
      list_.site_.messageArrives(message);
      return (list_.*handler_)(*this, message, wParam, lParam);
    }
    Win32List& list_;
    Handler handler_;
  };

  /// While it lives, a list that closes was closed by code.
  struct ByCode {
    explicit ByCode(Win32List& of) : list(of) { ++list.closingByCode_; }
    ~ByCode() { --list.closingByCode_; }
    ByCode(const ByCode&) = delete;
    ByCode& operator=(const ByCode&) = delete;
    Win32List& list;
  };

  /// Runs `change`, which an open list does not take on, while the list is closed.
  template <class Change>
  void rearrange(Change&& change) {
    keepOpen([&] {
      if (isDropped()) send(CB_SHOWDROPDOWN, FALSE);
      change();
    });
  }

  void create(HWND parent);
  LRESULT onComboMessage(Part& part, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT onEditMessage(Part& part, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT onDropDownMessage(Part& part, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT onPress(Part& part, UINT message, WPARAM wParam, LPARAM lParam);
  void onTyped(WPARAM character, LPARAM keyData);
  LRESULT onKeyDown(UINT message, WPARAM wParam, LPARAM lParam);

  LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
  bool isEntry(std::int16_t entry) const { return entry >= 0 && entry < entryCount(); }
  /// What screen readers listen for.
  void tellEntries() const;
  void tellSelection() const;
  POINT placeOnScreen() const;
  void restoreSelection();
  int insetOfEntry() const;
  int measure(StringView entry) const;
  int neededWidth() const;
  void fitToFont();
  void fitDropDown();
  void report(const std::function<void(DropDownListObserver&)>& report);

  WidgetSite& site_;
  DropDownListObserver* observer_;
  Part combo_;
  Part edit_;
  Part dropDown_;
  POINT at_{};
  POINT shownAt_{};  // on the screen, when the list was opened or moved
  int width_ = 0;
  std::vector<int> entryWidths_;
  std::int16_t selected_ = -1;
  POINT pointer_{};  // where the mouse pointer was seen last
  int closingByCode_ = 0;
  bool choosing_ = false;
  bool redraws_ = true;
  bool swallowCharacter_ = false;
};

}  // namespace keyscout
