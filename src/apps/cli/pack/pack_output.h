#pragma once

#include <filesystem>
#include <ostream>

#include "apps/cli/packing/pack_catalog.h"

namespace keyscout {

/// What a pack of `options` made, for people: what a host has to be set to, and what those that run
/// have to do.
void writeText(std::ostream& out, const PackOptions& options, const PackSummary& summary);

/// The same as one JSON object on one line.
void writeJson(std::ostream& out, const PackOptions& options, const PackSummary& summary);

}  // namespace keyscout
