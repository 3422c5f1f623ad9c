#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "apps/cli/try/layout.h"
#include "apps/cli/try/screen.h"
#include "apps/cli/try/try_form.h"
#include "platform/decorators/metered_files.h"

namespace keyscout {

/// What the last lookup took.
struct LookupCost {
  MeteredFiles::Reading reading;
  std::chrono::microseconds time{};
};

// The panels around the form. They only look.

/// The latest events, the newest at the bottom.
void drawEvents(Screen& screen, const Rectangle& area, const EventLog& log);
/// What all controls on the thread share, the flags of the lookup field with the focus, and what
/// its last lookup took.
void drawState(Screen& screen, const Rectangle& area, TryForm& form,
               const std::optional<LookupCost>& cost);
void drawTitle(Screen& screen, const Rectangle& area, const std::string& catalog);
/// The keys that belong to the host.
void drawKeys(Screen& screen, const Rectangle& area);

}  // namespace keyscout
