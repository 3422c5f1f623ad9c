#include "apps/cli/try/dialog.h"

#include <algorithm>
#include <cwctype>

#include "apps/cli/try/text_columns.h"
#include "platform/widgets.h"

namespace keyscout {
namespace {

constexpr int maxColumns = 72;
constexpr int margin = 2;  // between the frame and the text, on each side

/// `line` in pieces of at most `width` columns, broken at blanks where it has any.
void wrap(const std::wstring& line, int width, std::vector<std::wstring>& pieces) {
  std::wstring rest = line;
  while (columnsOf(rest) > width) {
    std::size_t end = fitted(rest, width).size();
    const std::size_t blank = rest.rfind(L' ', end);
    if (blank != rest.npos && blank > 0) end = blank;
    pieces.push_back(rest.substr(0, end));
    rest.erase(0, end);
    rest.erase(0, std::min(rest.find_first_not_of(L' '), rest.size()));
  }
  pieces.push_back(rest);
}

}  // namespace

std::vector<std::wstring> Dialog::wrapped(int width) const {
  std::vector<std::wstring> pieces;
  for (const std::wstring& line : lines_) wrap(line, width, pieces);
  return pieces;
}

void Dialog::draw() {
  background_();
  const int columns = std::min(maxColumns, screen_.columns() - 4);
  const auto lines = wrapped(columns - 2 - 2 * margin);
  int widest = columnsOf(title_) + 4;
  for (const std::wstring& line : lines) widest = std::max(widest, columnsOf(line));

  // Two rows below the lines belong to buttons or a bar.
  const int rows = std::min(static_cast<int>(lines.size()) + 4, screen_.rows());
  const int width = std::min(columns, std::max(widest, 30) + 2 + 2 * margin);
  box_ = {(screen_.rows() - rows) / 2, (screen_.columns() - width) / 2, rows, width};
  screen_.frame(box_, title_, Style::focusedFrame);
  for (int i = 0; i < std::min(static_cast<int>(lines.size()), rows - 4); ++i)
    screen_.text(box_.row + 1 + i, box_.column + 1 + margin, width - 2 - 2 * margin,
                 lines[static_cast<std::size_t>(i)], Style::plain);
}

void Dialog::drawButtons(const std::vector<std::wstring>& buttons) {
  int width = -2;
  for (const std::wstring& button : buttons) width += columnsOf(button) + 6;
  int column = box_.column + (box_.columns - width) / 2;
  buttonPlaces_.clear();
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    const int columns = columnsOf(buttons[i]) + 4;
    buttonPlaces_.push_back({box_.row + box_.rows - 2, column, 1, columns});
    screen_.text(box_.row + box_.rows - 2, column, columns, L"[ " + buttons[i] + L" ]",
                 i == chosen_ ? Style::chosen : Style::plain);
    column += columns + 2;
  }
}

std::size_t Dialog::choose(const std::vector<std::wstring>& buttons) {
  for (;;) {
    draw();
    drawButtons(buttons);
    screen_.show();
    Input input;
    do input = screen_.read();
    while (input.kind == Input::Kind::nothing);

    if (input.kind == Input::Kind::press)
      for (std::size_t i = 0; i < buttons.size(); ++i)
        if (buttonPlaces_[i].contains(input.row, input.column)) return i;
    // A question is answered by its buttons alone; what has been read is put away by any key.
    if (input.kind == Input::Kind::host && buttons.size() == 1) return 0;
    if (input.kind != Input::Kind::key) continue;
    switch (input.keyCode) {
      case KeyCodes::enter:
      case u' ': return chosen_;
      case KeyCodes::escape: return buttons.size() - 1;
      case KeyCodes::left:
      case KeyCodes::up: chosen_ -= chosen_ > 0 ? 1 : 0; break;
      case KeyCodes::right:
      case KeyCodes::down: chosen_ = std::min(chosen_ + 1, buttons.size() - 1); break;
      case KeyCodes::tab: chosen_ = (chosen_ + 1) % buttons.size(); break;
      default:
        for (std::size_t i = 0; i < buttons.size(); ++i)
          if (std::towupper(static_cast<wint_t>(buttons[i][0])) ==
              static_cast<wint_t>(input.keyCode))
            return i;
    }
  }
}

void Dialog::showProgress(double share) {
  draw();
  const int width = box_.columns - 2 - 2 * margin;
  const int done = static_cast<int>(std::clamp(share, 0.0, 1.0) * width);
  const int row = box_.row + box_.rows - 2;
  screen_.text(row, box_.column + 1 + margin, width, L"", Style::field);
  screen_.text(row, box_.column + 1 + margin, done, L"", Style::focusedField);
  screen_.show();
}

}  // namespace keyscout
