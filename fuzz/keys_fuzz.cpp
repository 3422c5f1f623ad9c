// What a terminal may send to `try`: every key that comes of it is one that a form can be given.

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdio>

#include "apps/cli/try/curses.h"
#include "apps/cli/try/keys.h"
#include "base/surrogates.h"
#include "fuzz_input.h"
#include "platform/memory/memory_form.h"

using namespace keyscout;

namespace {

/// A terminal whose person is the fuzzer: what is written into the pipe is typed.
class PipedTerminal {
 public:
  PipedTerminal() {
    if (pipe(ends_) != 0) std::abort();
    setenv("TERM", "xterm-256color", 1);
    setlocale(LC_ALL, "C.UTF-8");
    FILE* const screen = std::fopen("/dev/null", "w");
    FILE* const keyboard = fdopen(ends_[0], "r");
    if (!screen || !keyboard || !newterm(nullptr, screen, keyboard)) std::abort();
    raw();
    noecho();
    keypad(stdscr, TRUE);
    mousemask(ALL_MOUSE_EVENTS, nullptr);
    set_escdelay(1);
    KeyReader::defineSequences();
  }

  void type(std::string_view bytes) const {
    // More than the pipe holds would block, and a paste without an end is waited for.
    const std::string typed = std::string{bytes.substr(0, 4096)} + "\033[201~";
    if (write(ends_[1], typed.data(), typed.size()) < 0) std::abort();
  }
  bool hasMore() const {
    int waiting = 0;
    return ioctl(ends_[0], FIONREAD, &waiting) == 0 && waiting > 0;
  }

 private:
  int ends_[2];
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const PipedTerminal terminal;
  terminal.type(fuzz::FuzzInput{data, size}.rest());
  MemoryForm form;
  const auto surface = form.addSurface();
  form.moveFocus(*surface, FocusPlace::textBox);
  while (terminal.hasMore()) {
    const Input input = KeyReader{}.readWaiting();
    fuzz::require(input.shift >= 0 && input.shift <= 7, "the mask of a key");
    fuzz::require(input.hostKey >= 0 && input.hostKey <= 12, "the number of a function key");
    const bool isPair = isHighSurrogate(input.character) && isLowSurrogate(input.secondUnit);
    fuzz::require(isPair || input.secondUnit == 0, "half a character");
    fuzz::require(input.text.find_first_of(u"\t\r\n") == String::npos, "a paste on one line");
    if (input.kind == Input::Kind::paste) form.paste(input.text);
    if (input.kind != Input::Kind::key) continue;
    fuzz::require(input.keyCode > 0 && input.keyCode < 256, "the code of a key");
    form.keyDown(input.keyCode, input.shift, input.character);
    form.keyUp(input.keyCode, input.shift);
  }
  flushinp();
  return 0;
}
