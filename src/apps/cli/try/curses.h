#pragma once

// The terminal library's header, whose macros must not reach other files: it is included by the
// few that draw or read keys, and last.
#define NCURSES_WIDECHAR 1
#define NCURSES_NOMACROS 1
#include <curses.h>
