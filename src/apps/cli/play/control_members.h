#pragma once

#include <string>

#include "apps/cli/play/json_values.h"
#include "control/keyscout_control.h"

namespace keyscout {

// A control's members by name. An unknown name, and a value or argument of the wrong kind, is
// `Malformed`, before anything was done.

Json getControlProperty(const keyscoutControl& control, const std::string& name);
void setControlProperty(keyscoutControl& control, const std::string& name, const Json& value);
/// True when `name` is a property that can be set.
bool isSettableControlProperty(const std::string& name);
Json callControl(keyscoutControl& control, const std::string& name, const Json& arguments);

}  // namespace keyscout
