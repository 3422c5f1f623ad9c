#include "apps/cli/play/event_handlers.h"

#include <algorithm>

#include "apps/cli/play/control_members.h"
#include "apps/cli/play/controller_members.h"
#include "apps/cli/play/malformed.h"
#include "base/utf8.h"

namespace keyscout {
namespace {

using Names = std::vector<std::string>;

const Names& argumentsOf(const std::string& event) {
  static const Names key{"KeyCode", "Shift"};
  static const Names mouse{"Button", "Shift", "X", "Y"};
  static const std::map<std::string, Names> events{
      {"Change", {}},        {"brandChanged", {"strBrand"}},
      {"needBrand", {}},     {"KeyDown", key},
      {"MouseDown", mouse},  {"MouseMove", mouse},
      {"MouseUp", mouse},    {"Click", {}},
      {"DblClick", {}},      {"KeyUp", key},
      {"UpdateKeyscout", {}}};
  const auto found = events.find(event);
  if (found == events.end()) throw Malformed("there is no event \"" + event + "\"");
  return found->second;
}

/// Puts itself into a set for as long as it lives, unless it is there already.
class Entered {
 public:
  Entered(std::set<std::string>& names, const std::string& name) : names_(names) {
    const auto [place, added] = names.insert(name);
    if (added) name_ = *place;
  }
  ~Entered() { names_.erase(name_); }
  Entered(const Entered&) = delete;
  Entered& operator=(const Entered&) = delete;

  bool isFirst() const { return !name_.empty(); }

 private:
  std::set<std::string>& names_;
  std::string name_;
};

}  // namespace

void EventHandlers::configure(const Json& command) {
  const std::string event = toUtf8(toText(require(command, "event")));
  const Names& arguments = argumentsOf(event);
  Handler handler;
  if (const auto set = command.find("set"); set != command.end() && !set->is_null()) {
    if (!set->is_object()) throw Malformed("\"set\" names what is to be set");
    for (const auto& [name, value] : set->items()) {
      const bool isArgument = std::ranges::find(arguments, name) != arguments.end();
      if (!isArgument && !isSettableControlProperty(name))
        throw Malformed("\"" + event + "\" cannot set \"" + name + "\"");
    }
    handler.set = *set;
  }
  if (const auto call = command.find("call"); call != command.end() && !call->is_null()) {
    handler.call = toUtf8(toText(*call));
    if (!isPlainControllerMethod(handler.call))
      throw Malformed("\"" + handler.call + "\" is no controller method that an event can call");
  }
  if (handler.set.empty() && handler.call.empty()) {
    handlers_.erase(event);
  } else {
    handlers_[event] = handler;
  }
}

void EventHandlers::run(const std::string& event, keyscoutControl& control,
                        std::vector<EventArgument>& arguments) {
  const auto found = handlers_.find(event);
  if (found == handlers_.end()) return;
  const Entered entered{running_, event};
  if (!entered.isFirst()) return;

  for (const auto& [name, value] : found->second.set.items()) {
    const auto argument = std::ranges::find(arguments, name, &EventArgument::name);
    if (argument == arguments.end()) {
      setControlProperty(control, name, value);
    } else {
      argument->value = value;
    }
  }
  if (!found->second.call.empty()) callController(controller_, found->second.call, Json::array());
}

}  // namespace keyscout
