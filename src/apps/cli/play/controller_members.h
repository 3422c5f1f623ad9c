#pragma once

#include <string>

#include "apps/cli/play/json_values.h"
#include "controller/keyscout_controller.h"

namespace keyscout {

// The controller's members by name. An unknown name, and a value or argument of the wrong kind, is
// `Malformed`, before anything was done.

Json getControllerProperty(const RWKeyscoutController& controller, const std::string& name);
void setControllerProperty(RWKeyscoutController& controller, const std::string& name,
                           const Json& value);
Json callController(RWKeyscoutController& controller, const std::string& name,
                    const Json& arguments);
/// True when the controller has a method `name` that takes no argument.
bool isPlainControllerMethod(const std::string& name);

}  // namespace keyscout
