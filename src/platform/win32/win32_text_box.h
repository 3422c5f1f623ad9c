#pragma once

#include <functional>
#include <optional>

#include "platform/widgets.h"
#include "platform/win32/appearance.h"
#include "platform/win32/gdi.h"
#include "platform/win32/subclass.h"
#include "platform/win32/widget_site.h"

namespace keyscout {

/// The text box of a control: an edit window at the surface's origin. Lengths are pixels.
class Win32TextBox final : public TextBox, private Subclass {
 public:
  explicit Win32TextBox(WidgetSite& site);

  void create(HWND parent);
  void setObserver(TextBoxObserver* observer) { observer_ = observer; }
  /// Applies the font that the surface has now, and the height that goes with it.
  void applyFont();
  /// Makes the edit window anew on `parent`, with all that the present one has, in the direction
  /// of the site: an edit window keeps for good the alignment and the parent that it was made with.
  void recreate(HWND parent);

  using Subclass::window;
  int height() const;
  /// What the surface answers when the edit window is about to draw itself on `target`.
  HBRUSH prepareDrawing(HDC target);
  /// Draws the text box anew, as after a change of the system's colours.
  void redraw();
  /// The colours that it shows: those that the host set, else the system's for a text box in its
  /// state.
  COLORREF shownForeColor() const;
  COLORREF shownBackColor() const;

  /// Takes a character that came to another window, as if it had been typed here.
  void takeCharacter(WPARAM character, LPARAM keyData);
  void textChanged();
  void gotFocus();
  void lostFocus();

  String text() const override;
  void setText(StringView text) override;
  std::int32_t selStart() const override;
  void setSelStart(std::int32_t start) override;
  std::int32_t selLength() const override;
  void setSelLength(std::int32_t length) override;
  void setFocus() override;
  Boolean enabled() const override;
  void setEnabled(Boolean enabled) override;
  Boolean readOnly() const override;
  void setReadOnly(Boolean readOnly) override;
  std::int32_t foreColor() const override {
    return foreColor_.value_or(systemColor(COLOR_WINDOWTEXT));
  }
  void setForeColor(std::int32_t color) override;
  std::int32_t backColor() const override { return backColor_.value_or(systemColor(COLOR_WINDOW)); }
  void setBackColor(std::int32_t color) override;
  Boolean fontBold() const override { return bold_; }
  void setFontBold(Boolean bold) override;
  String toolTipText() const override { return toolTipText_; }
  void setToolTipText(StringView text) override;
  float left() const override;
  float top() const override;
  float width() const override;
  void setWidth(float width) override;
  void bringToFront() override;

 private:
  LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  LRESULT onKeyDown(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT onCharacter(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT onKeyUp(UINT message, WPARAM wParam, LPARAM lParam);
  void reportMouse(UINT message, WPARAM wParam, LPARAM lParam);
  void narrowToLine(RECT& inside) const;
  void fillAroundLine();
  RECT withinBorder() const;
  LRESULT hitTest(WPARAM wParam, LPARAM lParam);
  HWND makeWindow(HWND parent) const;
  RECT place() const;

  void report(const std::function<void(TextBoxObserver&)>& report);

  WidgetSite& site_;
  TextBoxObserver* observer_ = nullptr;
  Font font_;
  Brush background_;
  std::optional<std::int32_t> foreColor_;  // empty until the host sets one
  std::optional<std::int32_t> backColor_;
  Boolean bold_;
  bool pressed_ = false;  // by the left button of the mouse
  String toolTipText_;
  HWND toolTip_ = nullptr;  // owned by the edit window
  /// What is to be done with the character of the key that is down.
  enum class Character { take, drop, handOn };
  Character character_ = Character::take;
};

}  // namespace keyscout
