#pragma once

#include <cstdint>

#include "base/text.h"

namespace keyscout {

/// What a person did at the terminal.
struct Input {
  enum class Kind { nothing, key, paste, host, press, release, wheelUp, wheelDown, resize };

  Kind kind = Kind::nothing;

  // A key for the form, with the code and the mask that a keyboard reports and its character.
  std::int16_t keyCode = 0;
  std::int16_t shift = 0;
  /// 0 where the key has none; above the basic plane it is two units, the second one here.
  char16_t character = 0;
  char16_t secondUnit = 0;

  /// What was pasted, on one line: a blank stands for each line end inside.
  String text;

  /// The number of a function key, which belongs to the host.
  int hostKey = 0;

  // Where the mouse is.
  int row = 0;
  int column = 0;
};

/// Turns what the terminal sends into what a keyboard and a mouse would report.
class KeyReader {
 public:
  /// Makes the terminal library known with the sequences that it has no names for.
  static void defineSequences();

  /// What comes within a moment.
  Input read();
  /// What has come already.
  Input readWaiting();

 private:
  Input next();
};

/// The key of a keyboard on which `character` is typed, as the code and the mask that it reports.
/// Characters are not key codes: "(" is typed on the key of 9, while 40 is the code of Down.
Input keyOf(char32_t character);

}  // namespace keyscout
