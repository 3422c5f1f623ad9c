#pragma once

#include "base/code_page.h"

namespace keyscout {

/// The code page of the system, Windows-1252 where that takes several bytes for a character.
const CodePage& systemCodePage();
/// Its number, 1252 for example.
unsigned systemCodePageNumber();

}  // namespace keyscout
