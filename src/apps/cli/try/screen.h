#pragma once

#include <string>

#include "apps/cli/try/keys.h"

namespace keyscout {

/// How a text is shown; a terminal without colours shows them by weight and inversion.
enum class Style {
  plain,
  faint,
  strong,
  bar,
  barKey,
  frame,
  focusedFrame,
  field,
  focusedField,
  chosen,
  good,
  bad
};

struct Rectangle {
  int row = 0;
  int column = 0;
  int rows = 0;
  int columns = 0;

  bool contains(int atRow, int atColumn) const {
    return atRow >= row && atRow < row + rows && atColumn >= column && atColumn < column + columns;
  }
};

/// The whole terminal, from the beginning of this object to its end, which gives the terminal back
/// as it was. There is one at a time. What is drawn appears with `show`, as the difference from
/// what is there.
class Screen {
 public:
  /// Fails with `std::runtime_error` where the terminal is of no known kind, or of one that writes
  /// line below line only.
  Screen();
  ~Screen();
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  int rows() const;
  int columns() const;

  void clear();
  /// Puts `text` into exactly `width` columns from a place on; what lies off the screen is lost.
  void text(int row, int column, int width, const std::wstring& text, Style style);
  /// A frame along the inner edge of `area`, with a title in its upper side and nothing in it.
  void frame(const Rectangle& area, const std::wstring& title, Style style);
  /// Where the caret blinks; nowhere until it is placed again after `clear`.
  void placeCaret(int row, int column);
  void show();

  /// What the person at the terminal does next, nothing when a moment passes without. Fails with an
  /// `Interruption` where the program is to end.
  Input read();
  /// The same of what has been done already, without waiting.
  Input readWaiting();

 private:
  struct Caret {
    int row = 0;
    int column = 0;
    bool isShown = false;
  };

  struct Terminal;
  Terminal* terminal_;
  KeyReader keys_;
  Caret caret_;
};

}  // namespace keyscout
