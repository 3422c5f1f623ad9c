#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "apps/cli/play/json_values.h"
#include "control/keyscout_control.h"
#include "controller/keyscout_controller.h"

namespace keyscout {

/// An event's arguments by name. What is written to `value` goes back to the control.
struct EventArgument {
  std::string name;
  Json value;
};

/// What the scripted host does in its event handlers, the same ones for every control.
class EventHandlers {
 public:
  explicit EventHandlers(RWKeyscoutController& controller) : controller_(controller) {}

  /// Sets or removes a handler as an "on" command asks; `Malformed` where it asks for anything that
  /// an event cannot do.
  void configure(const Json& command);

  /// Runs the handler of `event`, where there is one. A handler does not run inside itself.
  void run(const std::string& event, keyscoutControl& control,
           std::vector<EventArgument>& arguments);

 private:
  struct Handler {
    Json set = Json::object();
    std::string call;
  };

  RWKeyscoutController& controller_;
  std::map<std::string, Handler> handlers_;
  std::set<std::string> running_;
};

}  // namespace keyscout
