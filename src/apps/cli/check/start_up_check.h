#pragma once

#include "apps/cli/check/checked_directory.h"

namespace keyscout {

/// Has a controller check the control file and the download as it does at every start-up. What it
/// refuses is a finding in its own words.
void checkStartUp(const CheckedDirectory& directory);

}  // namespace keyscout
