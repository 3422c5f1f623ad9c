#pragma once

#include <windows.h>

#include <ocidl.h>

#include <optional>

#include "base/text.h"
#include "server/com/com_ptr.h"

namespace keyscout {

/// What the container says about the surroundings of a control; what it does not say is as the
/// system has it.
struct Ambients {
  bool userMode = true;  // false while the form is being designed
  bool uiDead = false;   // true while the host's code is stopped
  LONG backColor;
  LONG foreColor;
  bool rightToLeft = false;
  std::optional<LOGFONTW> font;
  String displayName;

  static Ambients of(IOleClientSite* site);
};

}  // namespace keyscout
