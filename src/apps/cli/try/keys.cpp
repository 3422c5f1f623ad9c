#include "apps/cli/try/keys.h"

#include <cwchar>
#include <string_view>
#include <utility>

#include "apps/cli/try/curses.h"
#include "base/letter_case.h"
#include "base/surrogates.h"
#include "platform/widgets.h"

namespace keyscout {
namespace {

// Codes of our own, above all that the terminal library uses.
constexpr int altArrows = KEY_MAX + 1;
constexpr int altUp = altArrows;
constexpr int altDown = altArrows + 1;
constexpr int pasteBegins = altArrows + 2;
constexpr int pasteEnds = altArrows + 3;

// The code of a key that stands for a character which no key of the keyboard has.
constexpr std::int16_t packetKey = 231;

Input keyInput(int code, std::int16_t shift = 0, char16_t character = 0) {
  Input input;
  input.kind = Input::Kind::key;
  input.keyCode = static_cast<std::int16_t>(code);
  input.shift = shift;
  input.character = character;
  return input;
}

/// What comes next, as the terminal library tells it. Its decoder lets bytes through that stand for
/// no character: those are passed over.
int readNext(wint_t& character) {
  constexpr wint_t lastCharacter = 0x10FFFF;
  int kind = ERR;
  do {
    kind = get_wch(&character);
  } while (kind == OK && character > lastCharacter);
  return kind;
}

Input hostInput(int number) {
  Input input;
  input.kind = Input::Kind::host;
  input.hostKey = number;
  return input;
}

Input mouseInput() {
  MEVENT event;
  Input input;
  if (getmouse(&event) != OK) return input;
  input.row = event.y;
  input.column = event.x;
  if ((event.bstate & BUTTON1_PRESSED) != 0) input.kind = Input::Kind::press;
  if ((event.bstate & BUTTON1_RELEASED) != 0) input.kind = Input::Kind::release;
  if ((event.bstate & BUTTON4_PRESSED) != 0) input.kind = Input::Kind::wheelUp;
  if ((event.bstate & BUTTON5_PRESSED) != 0) input.kind = Input::Kind::wheelDown;
  return input;
}

/// Puts characters together to the text that a box of one line takes.
class PastedLine {
 public:
  void add(char32_t character) {
    if (character == U'\r' || character == U'\n' || character == U'\t') {
      isBlankDue_ = !text_.empty();
      return;
    }
    if (character < U' ' || character == 127) return;
    if (std::exchange(isBlankDue_, false)) text_ += u' ';
    if (character > 0xFFFF) {
      text_ += highSurrogate(character);
      text_ += lowSurrogate(character);
    } else {
      text_ += static_cast<char16_t>(character);
    }
  }
  String take() { return std::move(text_); }

 private:
  String text_;
  bool isBlankDue_ = false;
};

/// Reads on to the mark that ends a paste, and gives up where none comes for a while.
Input pastedInput() {
  constexpr int patience = 500;  // milliseconds
  PastedLine line;
  timeout(patience);
  for (;;) {
    wint_t character = 0;
    const int kind = readNext(character);
    // A signal ends the waiting too; the one of a new window size comes as a key as well.
    if (kind == ERR || (kind == KEY_CODE_YES && character == pasteEnds)) break;
    if (kind == OK) line.add(static_cast<char32_t>(character));
  }
  Input input;
  input.kind = Input::Kind::paste;
  input.text = line.take();
  return input;
}

Input namedKey(int code) {
  switch (code) {
    case KEY_UP: return keyInput(KeyCodes::up);
    case KEY_DOWN: return keyInput(KeyCodes::down);
    case KEY_LEFT: return keyInput(KeyCodes::left);
    case KEY_RIGHT: return keyInput(KeyCodes::right);
    case KEY_HOME: return keyInput(KeyCodes::home);
    case KEY_END: return keyInput(KeyCodes::end);
    case KEY_PPAGE: return keyInput(KeyCodes::pageUp);
    case KEY_NPAGE: return keyInput(KeyCodes::pageDown);
    case KEY_DC: return keyInput(KeyCodes::deleteKey);
    case KEY_BACKSPACE: return keyInput(KeyCodes::backspace);
    case KEY_ENTER: return keyInput(KeyCodes::enter, 0, u'\r');
    case KEY_BTAB: return keyInput(KeyCodes::tab, Modifier::shift);
    case altUp: return keyInput(KeyCodes::up, Modifier::alt);
    case altDown: return keyInput(KeyCodes::down, Modifier::alt);
    case pasteBegins: return pastedInput();
    case KEY_MOUSE: return mouseInput();
    case KEY_RESIZE: {
      Input input;
      input.kind = Input::Kind::resize;
      return input;
    }
    default: break;
  }
  if (code > KEY_F0 && code <= KEY_F(12)) return hostInput(code - KEY_F0);
  return {};
}

Input controlKey(wint_t character) {
  switch (character) {
    case L'\t': return keyInput(KeyCodes::tab);
    case L'\r':
    case L'\n': return keyInput(KeyCodes::enter, 0, u'\r');
    case 8:
    case 127: return keyInput(KeyCodes::backspace);
    default: break;
  }
  if (character < 27) return keyInput(static_cast<int>(character) + 'A' - 1, Modifier::ctrl);
  return {};
}

/// What comes behind an escape at once belongs to it: terminals send Alt with a key like that.
Input escapeKey() {
  wint_t next = 0;
  timeout(0);
  const int kind = readNext(next);
  if (kind == ERR) return keyInput(KeyCodes::escape);
  if (kind == KEY_CODE_YES && (next == KEY_RESIZE || next == KEY_MOUSE)) {
    // These are no keys; they come by themselves and only seem to belong to it.
    ungetch(static_cast<int>(next));
    return keyInput(KeyCodes::escape);
  }
  Input input = kind == KEY_CODE_YES ? namedKey(static_cast<int>(next))
                : next < 32          ? controlKey(next)
                                     : keyOf(static_cast<char32_t>(next));
  input.shift |= Modifier::alt;
  input.character = input.secondUnit = 0;
  return input;
}

struct PunctuationKey {
  char32_t plain;
  char32_t shifted;
  std::int16_t code;
};

// The keys of a United States keyboard that are neither letters nor the keypad.
constexpr PunctuationKey punctuation[] = {
    {U'0', U')', 48},   {U'1', U'!', 49},  {U'2', U'@', 50},  {U'3', U'#', 51},   {U'4', U'$', 52},
    {U'5', U'%', 53},   {U'6', U'^', 54},  {U'7', U'&', 55},  {U'8', U'*', 56},   {U'9', U'(', 57},
    {U';', U':', 186},  {U'=', U'+', 187}, {U',', U'<', 188}, {U'-', U'_', 189},  {U'.', U'>', 190},
    {U'/', U'?', 191},  {U'`', U'~', 192}, {U'[', U'{', 219}, {U'\\', U'|', 220}, {U']', U'}', 221},
    {U'\'', U'"', 222}, {U' ', U' ', 32}};

}  // namespace

Input keyOf(char32_t character) {
  if (character > 0xFFFF) {
    Input input = keyInput(packetKey);
    input.character = highSurrogate(character);
    input.secondUnit = lowSurrogate(character);
    return input;
  }
  const auto unit = static_cast<char16_t>(character);
  if (character >= U'a' && character <= U'z') return keyInput(upperCase(unit), 0, unit);
  if (character >= U'A' && character <= U'Z') return keyInput(unit, Modifier::shift, unit);
  for (const PunctuationKey& key : punctuation) {
    if (character == key.plain) return keyInput(key.code, 0, unit);
    if (character == key.shifted) return keyInput(key.code, Modifier::shift, unit);
  }
  return keyInput(packetKey, 0, unit);
}

void KeyReader::defineSequences() {
  for (const char* const sequence : {"\033[1;3A", "\033\033[A", "\033\033OA"})
    define_key(sequence, altUp);
  for (const char* const sequence : {"\033[1;3B", "\033\033[B", "\033\033OB"})
    define_key(sequence, altDown);
  define_key("\033[200~", pasteBegins);
  define_key("\033[201~", pasteEnds);
}

Input KeyReader::read() {
  constexpr int moment = 100;  // milliseconds
  timeout(moment);
  return next();
}

Input KeyReader::readWaiting() {
  timeout(0);
  return next();
}

Input KeyReader::next() {
  wint_t character = 0;
  const int kind = readNext(character);
  if (kind == ERR) return {};
  if (kind == KEY_CODE_YES) return namedKey(static_cast<int>(character));
  if (character == 27) return escapeKey();
  if (character < 32 || character == 127) return controlKey(character);
  return keyOf(static_cast<char32_t>(character));
}

}  // namespace keyscout
