#include "apps/cli/try/form_view.h"

#include <algorithm>

#include "apps/cli/try/text_columns.h"
#include "base/utf8.h"

namespace keyscout {
namespace {

using Stop = TryForm::Stop;

std::wstring shownChoice(const TryForm::BrandChoice& choice) {
  return (choice.isChosen ? L"[x] " : L"[ ] ") + toCodePoints(choice.brand);
}

constexpr int choiceGap = 2;

}  // namespace

void FormView::drawForm(const Layout& layout) {
  screen_.frame(layout.form, L"Order line", Style::frame);
  drawLabel(layout, layout.part, L"Part");
  drawLabel(layout, layout.replaces, L"Replaces");
  drawLabel(layout, layout.brand, L"Brand");
  drawLabel(layout, layout.authorized, L"Authorized");
  drawTextBox(layout.part, form_.part().surface().textBox(), form_.focus() == Stop::part);
  drawTextBox(layout.replaces, form_.replaces().surface().textBox(),
              form_.focus() == Stop::replaces);
  drawTextBox(layout.brand, form_.brand(), form_.focus() == Stop::brand);
  for (LookupField* const field : {&form_.part(), &form_.replaces()}) {
    const Rectangle place = fieldOf(layout, *field);
    if (field->acceptedBrand().empty()) continue;
    screen_.text(place.row + 1, place.column, place.columns,
                 L"of " + toCodePoints(field->acceptedBrand()), Style::faint);
  }
  drawChoices(layout);
}

void FormView::drawLabel(const Layout& layout, const Rectangle& field, const std::wstring& label) {
  screen_.text(field.row, layout.labelColumn, layout.labelWidth, label, Style::plain);
}

void FormView::drawTextBox(const Rectangle& place, const TextBox& textBox, bool hasFocus) {
  const String text = textBox.text();
  const StringView beforeCaret =
      StringView{text}.substr(0, static_cast<std::size_t>(textBox.selStart()));
  // A text that is longer than the box is shown from where its caret still is in it.
  std::size_t first = beforeCaret.size();
  int caretColumn = 0;
  while (first > 0) {
    const std::size_t before = characterBefore(beforeCaret, first);
    const int columns = columnsOf(toCodePoints(beforeCaret.substr(before, first - before)));
    if (caretColumn + columns >= place.columns) break;
    caretColumn += columns;
    first = before;
  }
  // Most of a very long text is not in sight; a character with its marks may be several units.
  const auto inSight = StringView{text}.substr(first, static_cast<std::size_t>(place.columns) * 8);
  screen_.text(place.row, place.column, place.columns, toCodePoints(inSight),
               hasFocus ? Style::focusedField : Style::field);
  if (hasFocus) screen_.placeCaret(place.row, place.column + caretColumn);
}

std::size_t FormView::firstShownChoice(int width) const {
  const auto& choices = form_.choices();
  std::size_t first = 0;
  int used = 0;
  for (std::size_t i = 0; i <= form_.choiceCursor() && i < choices.size(); ++i)
    used += columnsOf(shownChoice(choices[i])) + choiceGap;
  for (; first < form_.choiceCursor() && used - choiceGap > width; ++first)
    used -= columnsOf(shownChoice(choices[first])) + choiceGap;
  return first;
}

void FormView::drawChoices(const Layout& layout) {
  const Rectangle& place = layout.authorized;
  const auto& choices = form_.choices();
  const int end = place.column + place.columns;
  int column = place.column;
  for (std::size_t i = firstShownChoice(place.columns); i < choices.size(); ++i) {
    const std::wstring shown = shownChoice(choices[i]);
    const bool hasFocus = form_.focus() == Stop::authorized && i == form_.choiceCursor();
    if (column + columnsOf(shown) > end && !hasFocus) {
      screen_.text(place.row, end - 1, 1, L"\x2026", Style::plain);
      return;
    }
    screen_.text(place.row, column, std::min(columnsOf(shown), end - column), shown,
                 hasFocus              ? Style::chosen
                 : choices[i].isChosen ? Style::strong
                                       : Style::plain);
    column += columnsOf(shown) + choiceGap;
  }
}

std::optional<std::size_t> FormView::choiceAt(const Layout& layout, int row, int column) const {
  if (!layout.authorized.contains(row, column)) return std::nullopt;
  const auto& choices = form_.choices();
  int begin = layout.authorized.column;
  for (std::size_t i = firstShownChoice(layout.authorized.columns); i < choices.size(); ++i) {
    const int width = columnsOf(shownChoice(choices[i]));
    if (column >= begin && column < begin + width) return i;
    begin += width + choiceGap;
  }
  return std::nullopt;
}

Rectangle FormView::fieldOf(const Layout& layout, const LookupField& field) const {
  return &field == &form_.part() ? layout.part : layout.replaces;
}

Rectangle FormView::dropDownOf(const Layout& layout, const LookupField& field) const {
  int widest = 0;
  const auto list = field.surface().listView();
  for (const String& entry : list->entries)
    widest = std::max(widest, columnsOf(toCodePoints(entry)));
  return layout.dropDown(fieldOf(layout, field), static_cast<int>(list->entries.size()), widest);
}

/// The list is scrolled by no more than it takes to keep the selected entry in sight.
void FormView::scroll(int selected, int shown) {
  top_ = selected < 0 ? 0 : std::clamp(top_, std::max(0, selected - shown + 1), selected);
}

void FormView::drawList(const Layout& layout) {
  const LookupField* const field = form_.openField();
  if (!field) return;
  const auto list = field->surface().listView();
  const int entries = static_cast<int>(list->entries.size());
  const Rectangle area = dropDownOf(layout, *field);
  const int shown = area.rows - 2;
  scroll(list->selected, shown);
  const int first = top_;

  screen_.frame(area, L"", Style::focusedFrame);
  for (int i = 0; i < shown; ++i) {
    const bool isSelected = first + i == list->selected;
    screen_.text(
        area.row + 1 + i, area.column + 1, area.columns - 2,
        shortened(toCodePoints(
                      list->entries[static_cast<std::size_t>(first) + static_cast<std::size_t>(i)]),
                  area.columns - 2),
        isSelected ? Style::chosen : Style::plain);
  }
  if (first > 0)
    screen_.text(area.row, area.column + area.columns - 10, 8, L" more \x2191 ",
                 Style::focusedFrame);
  const bool ends = static_cast<bool>(field->control().lookupFields().endOfCatalogReached);
  const bool isAtEnd = ends && first + shown == entries;
  const std::wstring mark = isAtEnd ? L" end of catalog " : L" more \x2193 ";
  const int width = std::min(columnsOf(mark), area.columns - 2);
  const int column = std::max(area.column + 1, area.column + area.columns - 2 - width);
  screen_.text(area.row + area.rows - 1, column, width, mark, Style::focusedFrame);
}

std::optional<std::int16_t> FormView::entryAt(const Layout& layout, int row, int column) const {
  const LookupField* const field = form_.openField();
  if (!field) return std::nullopt;
  const Rectangle area = dropDownOf(layout, *field);
  const Rectangle inside{area.row + 1, area.column + 1, area.rows - 2, area.columns - 2};
  if (!inside.contains(row, column)) return std::nullopt;
  return static_cast<std::int16_t>(top_ + row - inside.row);
}

}  // namespace keyscout
