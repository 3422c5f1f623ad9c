#include "apps/cli/try/screen.h"

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "apps/cli/terminal/interruption.h"
#include "apps/cli/try/curses.h"
#include "apps/cli/try/text_columns.h"

namespace keyscout {
namespace {

// An escape is a key of its own unless more comes within so many milliseconds.
constexpr int escapeDelay = 25;

struct Look {
  short foreground;
  short background;
  attr_t attributes;
};

// In the order of `Style`; -1 is the terminal's own colour.
constexpr Look looks[] = {
    {-1, -1, A_NORMAL},                     // plain
    {-1, -1, A_DIM},                        // faint
    {-1, -1, A_BOLD},                       // strong
    {COLOR_WHITE, COLOR_BLUE, A_NORMAL},    // bar
    {COLOR_YELLOW, COLOR_BLUE, A_BOLD},     // barKey
    {COLOR_BLUE, -1, A_NORMAL},             // frame
    {COLOR_CYAN, -1, A_BOLD},               // focusedFrame
    {-1, -1, A_UNDERLINE},                  // field
    {COLOR_BLACK, COLOR_CYAN, A_NORMAL},    // focusedField
    {COLOR_BLACK, COLOR_YELLOW, A_NORMAL},  // chosen
    {COLOR_GREEN, -1, A_NORMAL},            // good
    {COLOR_RED, -1, A_BOLD},                // bad
};

// Without colours the places to look at stand out by inversion.
constexpr attr_t plainLooks[] = {A_NORMAL, A_DIM,       A_BOLD,    A_REVERSE, A_REVERSE, A_NORMAL,
                                 A_BOLD,   A_UNDERLINE, A_REVERSE, A_REVERSE, A_NORMAL,  A_BOLD};

void beginColors() {
  if (!has_colors()) return;
  start_color();
  use_default_colors();
  short pair = 1;
  for (const Look& look : looks) init_pair(pair++, look.foreground, look.background);
}

void apply(Style style) {
  const auto number = static_cast<std::size_t>(style);
  if (has_colors()) {
    attr_set(looks[number].attributes, static_cast<short>(number + 1), nullptr);
  } else {
    attr_set(plainLooks[number], 0, nullptr);
  }
}

/// Terminals that can then send a mark before and behind what is pasted; the others do not know the
/// sequence and ignore it.
void setPasteMarks(bool areSent) {
  std::fputs(areSent ? "\033[?2004h" : "\033[?2004l", stdout);
  std::fflush(stdout);
}

}  // namespace

struct Screen::Terminal {
  SCREEN* handle;
};

Screen::Screen() {
  std::setlocale(LC_ALL, "");  // NOLINT(concurrency-mt-unsafe): one thread
  SCREEN* const handle = newterm(nullptr, stdout, stdin);
  const char* const term = std::getenv("TERM");  // NOLINT(concurrency-mt-unsafe)
  const std::string kind = term ? term : "TERM is not set";
  if (!handle)
    throw std::runtime_error("The terminal is of an unknown kind (" + kind +
                             "). Set TERM to what it is, for example TERM=xterm.");
  if (!tigetstr("cup")) {  // the sequence that moves the cursor
    endwin();
    delscreen(handle);
    throw std::runtime_error("A terminal of this kind (" + kind +
                             ") only writes line below line; keyscout lookup DIR TEXT does too.");
  }
  terminal_ = new Terminal{handle};
  set_escdelay(escapeDelay);
  cbreak();
  noecho();
  nonl();
  keypad(stdscr, TRUE);
  meta(stdscr, TRUE);
  mousemask(BUTTON1_PRESSED | BUTTON1_RELEASED | BUTTON4_PRESSED | BUTTON5_PRESSED, nullptr);
  mouseinterval(0);
  beginColors();
  KeyReader::defineSequences();
  setPasteMarks(true);
}

Screen::~Screen() {
  setPasteMarks(false);
  endwin();
  delscreen(terminal_->handle);
  delete terminal_;
}

int Screen::rows() const { return getmaxy(stdscr); }
int Screen::columns() const { return getmaxx(stdscr); }

void Screen::clear() {
  apply(Style::plain);
  erase();
  caret_.isShown = false;
}

void Screen::text(int row, int column, int width, const std::wstring& text, Style style) {
  const int room = std::min(width, columns() - column);
  if (row < 0 || row >= rows() || column < 0 || room <= 0) return;
  apply(style);
  mvaddwstr(row, column, fitted(text, room).c_str());
}

void Screen::frame(const Rectangle& area, const std::wstring& title, Style style) {
  const int right = area.column + area.columns - 1;
  const int bottom = area.row + area.rows - 1;
  for (int row = area.row; row <= bottom; ++row)
    text(row, area.column, area.columns, L"", Style::plain);
  apply(style);
  mvhline_set(area.row, area.column + 1, WACS_HLINE, area.columns - 2);
  mvhline_set(bottom, area.column + 1, WACS_HLINE, area.columns - 2);
  mvvline_set(area.row + 1, area.column, WACS_VLINE, area.rows - 2);
  mvvline_set(area.row + 1, right, WACS_VLINE, area.rows - 2);
  mvadd_wch(area.row, area.column, WACS_ULCORNER);
  mvadd_wch(area.row, right, WACS_URCORNER);
  mvadd_wch(bottom, area.column, WACS_LLCORNER);
  mvadd_wch(bottom, right, WACS_LRCORNER);
  if (!title.empty())
    text(area.row, area.column + 2, std::min(columnsOf(title) + 2, area.columns - 4),
         L' ' + title + L' ', style);
}

void Screen::placeCaret(int row, int column) { caret_ = {row, column, true}; }

void Screen::show() {
  curs_set(caret_.isShown ? 1 : 0);
  if (caret_.isShown) move(caret_.row, caret_.column);
  refresh();
}

Input Screen::read() {
  Interruption::check();
  Input input = keys_.read();
  Interruption::check();
  return input;
}

Input Screen::readWaiting() {
  Interruption::check();
  return keys_.readWaiting();
}

}  // namespace keyscout
