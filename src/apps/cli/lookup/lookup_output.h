#pragma once

#include <ostream>

#include "apps/cli/lookup/lookup.h"
#include "apps/cli/terminal/text_style.h"

namespace keyscout {

/// One entry a line: its number, then its brand in a column of its own.
void writeText(std::ostream& out, const LookupAnswer& answer, const TextStyle& style);
/// One JSON object on one line.
void writeJson(std::ostream& out, const LookupRequest& request, const LookupAnswer& answer);

}  // namespace keyscout
