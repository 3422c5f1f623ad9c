#pragma once

#include <optional>

#include "apps/cli/try/layout.h"
#include "apps/cli/try/screen.h"
#include "apps/cli/try/try_form.h"

namespace keyscout {

/// Draws the form: its text boxes, its choices and, over all else, an open drop-down list. It also
/// knows what is under the mouse.
class FormView {
 public:
  FormView(Screen& screen, TryForm& form) : screen_(screen), form_(form) {}

  void drawForm(const Layout& layout);
  /// To be drawn last.
  void drawList(const Layout& layout);

  /// The entry of the open list at a place, absent where there is none.
  std::optional<std::int16_t> entryAt(const Layout& layout, int row, int column) const;
  std::optional<std::size_t> choiceAt(const Layout& layout, int row, int column) const;

 private:
  void drawLabel(const Layout& layout, const Rectangle& field, const std::wstring& label);
  void drawTextBox(const Rectangle& place, const TextBox& textBox, bool hasFocus);
  void drawChoices(const Layout& layout);
  std::size_t firstShownChoice(int width) const;
  void scroll(int selected, int shown);
  Rectangle dropDownOf(const Layout& layout, const LookupField& field) const;
  Rectangle fieldOf(const Layout& layout, const LookupField& field) const;

  Screen& screen_;
  TryForm& form_;
  int top_ = 0;  // the first entry of the list that is in sight
};

}  // namespace keyscout
