#include "apps/cli/play/scripted_host.h"

#include "apps/cli/play/control_members.h"
#include "apps/cli/play/controller_members.h"
#include "apps/cli/play/malformed.h"
#include "base/utf8.h"
#include "shared/keyscout_module.h"

namespace keyscout {
namespace {

std::string name(const Json& command, const std::string& member) {
  return toUtf8(toText(require(command, member)));
}

const Json& argumentsOf(const Json& command) {
  static const Json none = Json::array();
  const auto found = command.find("args");
  if (found == command.end()) return none;
  if (!found->is_array()) throw Malformed("\"args\" is a list");
  return *found;
}

std::int16_t optionalNumber(const Json& command, const std::string& member) {
  const auto found = command.find(member);
  return found == command.end() ? std::int16_t{0} : toInt16(*found);
}

template <class Value>
Value choose(const std::map<std::string, Value>& choices, const std::string& choice) {
  const auto found = choices.find(choice);
  if (found == choices.end()) throw Malformed("\"" + choice + "\" is none of the choices");
  return found->second;
}

std::int16_t keyCodeOf(const Json& key) {
  if (key.is_number()) return toInt16(key);
  static const std::map<std::string, std::int16_t> keys{{"Enter", KeyCodes::enter},
                                                        {"PageUp", KeyCodes::pageUp},
                                                        {"PageDown", KeyCodes::pageDown},
                                                        {"End", KeyCodes::end},
                                                        {"Home", KeyCodes::home},
                                                        {"Left", KeyCodes::left},
                                                        {"Up", KeyCodes::up},
                                                        {"Right", KeyCodes::right},
                                                        {"Down", KeyCodes::down},
                                                        {"Delete", KeyCodes::deleteKey},
                                                        {"Backspace", KeyCodes::backspace},
                                                        {"Escape", KeyCodes::escape},
                                                        {"Tab", KeyCodes::tab}};
  return choose(keys, toUtf8(toText(key)));
}

/// The command on a line, where it is JSON.
Json parsed(const std::string& line) {
  try {
    return Json::parse(line);
  } catch (const Json::parse_error& failure) {
    throw Malformed("this is no JSON; it goes wrong at byte " + std::to_string(failure.byte));
  } catch (const Json::exception&) {
    throw Malformed("a number is beyond all bounds");
  }
}

Json asJson(const std::optional<KeyedCollection<String>>& collection) {
  if (!collection) return nullptr;
  Json keys = Json::array();
  for (const auto& entry : *collection) keys.push_back(toJson(*entry.key));
  return keys;
}

}  // namespace

ScriptedHost::ScriptedHost(Files& files, Widgets widgets)
    : widgets_(widgets),
      form_(makeForm(widgets, faults_)),
      files_(files, faults_),
      platform_(files_, messageBox_, std::make_shared<HookedTrace>(trace_, faults_)) {}

const std::map<std::string, ScriptedHost::Command>& ScriptedHost::commands() {
  static const std::map<std::string, Command> table{
      {"controller.set", &ScriptedHost::setOnController},
      {"controller.get", &ScriptedHost::getFromController},
      {"controller.call", &ScriptedHost::callOnController},
      {"control.new", &ScriptedHost::newControl},
      {"control.free", &ScriptedHost::freeControl},
      {"control.set", &ScriptedHost::setOnControl},
      {"control.get", &ScriptedHost::getFromControl},
      {"control.call", &ScriptedHost::callOnControl},
      {"control.resize", &ScriptedHost::resizeControl},
      {"focus", &ScriptedHost::moveFocus},
      {"type", &ScriptedHost::type},
      {"paste", &ScriptedHost::paste},
      {"key", &ScriptedHost::pressKey},
      {"click", &ScriptedHost::click},
      {"mouse", &ScriptedHost::mouse},
      {"on", &ScriptedHost::setHandler},
      {"answer", &ScriptedHost::setAnswer},
      {"fail", &ScriptedHost::planFault},
      {"trace", &ScriptedHost::switchTrace},
      {"state", &ScriptedHost::state},
      {"shared", &ScriptedHost::shared}};
  return table;
}

Json ScriptedHost::run(const std::string& line) {
  notes_ = {};
  trace_->take();
  Json answer{{"ok", true}, {"result", nullptr}};
  try {
    answer["result"] = dispatch(parsed(line));
  } catch (const Malformed& malformed) {
    answer["ok"] = false;
    answer["malformed"] = malformed.what();
  } catch (const Json::exception&) {
    answer["ok"] = false;
    answer["malformed"] = "a value is of another kind than the command takes";
  } catch (...) {
    answer["ok"] = false;
    answer["error"] = toJson(currentError());
  }
  answer["events"] = std::move(notes_.events);
  answer["messages"] = std::move(notes_.messages);
  if (showsTrace_) {
    Json& calls = answer["trace"] = Json::array();
    for (const TraceCall& call : trace_->take()) calls.push_back(toJson(call));
  }
  return answer;
}

Json ScriptedHost::focusedState() const {
  for (const auto& [name, control] : controls_)
    if (&control->surface() == form_->focusedSurface()) return control->state();
  return nullptr;
}

Json ScriptedHost::dispatch(const Json& command) {
  if (!command.is_object()) throw Malformed("a command is a JSON object");
  const std::string operation = name(command, "op");
  const auto found = commands().find(operation);
  if (found == commands().end()) throw Malformed("there is no command \"" + operation + "\"");
  return (this->*found->second)(command);
}

ScriptedControl& ScriptedHost::named(const Json& command) {
  const std::string control = name(command, "control");
  const auto found = controls_.find(control);
  if (found == controls_.end()) throw Malformed("there is no control \"" + control + "\"");
  return *found->second;
}

Json ScriptedHost::setOnController(const Json& command) {
  setControllerProperty(controller_, name(command, "name"), require(command, "value"));
  return nullptr;
}

Json ScriptedHost::getFromController(const Json& command) {
  return getControllerProperty(controller_, name(command, "name"));
}

Json ScriptedHost::callOnController(const Json& command) {
  return callController(controller_, name(command, "name"), argumentsOf(command));
}

Json ScriptedHost::newControl(const Json& command) {
  const std::string control = name(command, "control");
  if (controls_.contains(control))
    throw Malformed("there is a control \"" + control + "\" already");
  controls_[control] =
      std::make_unique<ScriptedControl>(control, platform_, *form_, notes_, handlers_);
  return nullptr;
}

Json ScriptedHost::freeControl(const Json& command) {
  named(command);
  controls_.erase(name(command, "control"));
  return nullptr;
}

Json ScriptedHost::setOnControl(const Json& command) {
  setControlProperty(named(command).control(), name(command, "name"), require(command, "value"));
  return nullptr;
}

Json ScriptedHost::getFromControl(const Json& command) {
  return getControlProperty(named(command).control(), name(command, "name"));
}

Json ScriptedHost::callOnControl(const Json& command) {
  return callControl(named(command).control(), name(command, "name"), argumentsOf(command));
}

Json ScriptedHost::resizeControl(const Json& command) {
  ScriptedControl& control = named(command);
  control.surface().resize(toFloat(require(command, "width")));
  return nullptr;
}

Json ScriptedHost::moveFocus(const Json& command) {
  if (require(command, "control").is_null()) {
    form_->leaveFocus();
    return nullptr;
  }
  static const std::map<std::string, FocusPlace> places{
      {"text", FocusPlace::textBox}, {"list", FocusPlace::list}, {"surface", FocusPlace::surface}};
  PlayableSurface& surface = named(command).surface();
  const std::string widget = command.contains("widget") ? name(command, "widget") : "text";
  form_->moveFocus(surface, choose(places, widget));
  return nullptr;
}

Json ScriptedHost::type(const Json& command) {
  for (const char16_t character : toText(require(command, "text"))) form_->type(character);
  return nullptr;
}

Json ScriptedHost::paste(const Json& command) {
  form_->paste(toText(require(command, "text")));
  return nullptr;
}

Json ScriptedHost::pressKey(const Json& command) {
  const std::int16_t keyCode = keyCodeOf(require(command, "key"));
  const std::int16_t shift = optionalNumber(command, "shift");
  const std::string phase = command.contains("phase") ? name(command, "phase") : "both";
  if (phase != "both" && phase != "down" && phase != "up")
    throw Malformed(R"(a key's phase is "down" or "up")");
  if (phase != "up") form_->keyDown(keyCode, shift);
  if (phase != "down") form_->keyUp(keyCode, shift);
  return nullptr;
}

Json ScriptedHost::click(const Json& command) {
  const Json& entry = require(command, "entry");
  if (!entry.is_number_integer())
    throw Malformed("a whole number is expected, not " + entry.dump());
  PlayableSurface* const surface = focused();
  const auto list = surface ? surface->listView() : std::nullopt;
  if (!list || !list->isDropped) throw Malformed("no drop-down list is shown");
  if (entry < 0 || entry >= list->entries.size())
    throw Malformed("the drop-down list has no entry " + entry.dump());
  surface->click(entry.get<std::int16_t>());
  return nullptr;
}

Json ScriptedHost::mouse(const Json& command) {
  static const std::map<std::string, MouseReport> kinds{{"down", MouseReport::down},
                                                        {"move", MouseReport::move},
                                                        {"up", MouseReport::up},
                                                        {"click", MouseReport::click},
                                                        {"dblclick", MouseReport::doubleClick}};
  const MouseReport kind = choose(kinds, name(command, "kind"));
  const std::int16_t button = optionalNumber(command, "button");
  const std::int16_t shift = optionalNumber(command, "shift");
  const auto position = [&](const std::string& axis) {
    return command.contains(axis) ? toFloat(command[axis]) : 0.0F;
  };
  if (PlayableSurface* const surface = focused())
    surface->mouse(kind, button, shift, position("x"), position("y"));
  return nullptr;
}

Json ScriptedHost::setHandler(const Json& command) {
  handlers_.configure(command);
  return nullptr;
}

Json ScriptedHost::setAnswer(const Json& command) {
  static const std::map<std::string, MessageBoxButton> buttons{{"yes", MessageBoxButton::yes},
                                                               {"no", MessageBoxButton::no}};
  messageBox_.answerWith(choose(buttons, name(command, "button")));
  return nullptr;
}

Json ScriptedHost::planFault(const Json& command) {
  const std::string operation = name(command, "operation");
  const std::int16_t at = toInt16(require(command, "at"));
  if (!FaultPlan::knows(operation)) throw Malformed("\"" + operation + "\" cannot be made to fail");
  if (widgets_ != Widgets::memory && FaultPlan::isOnWidget(operation))
    throw Malformed("calls of real widgets cannot be made to fail");
  if (at < 1) throw Malformed("calls are counted from 1");
  faults_.failAt(operation, at);
  return nullptr;
}

Json ScriptedHost::switchTrace(const Json& command) {
  const Json& on = require(command, "on");
  if (!on.is_boolean()) throw Malformed("\"on\" is true or false");
  showsTrace_ = on.get<bool>();
  return nullptr;
}

Json ScriptedHost::state(const Json& command) { return named(command).state(); }

Json ScriptedHost::shared(const Json& /*command*/) {
  const keyscoutModule& module = keyscoutModule::ofThisThread();
  return {{"catalogTableCount", module.catalogTableCount},
          {"lastTableNumber", module.lastTableNumber},
          {"KeyscoutDirectory", toJson(module.KeyscoutDirectory)},
          {"KeyscoutIndexFile", toJson(module.KeyscoutIndexFile)},
          {"CatalogNumbersDownloadFile", toJson(module.CatalogNumbersDownloadFile)},
          {"isInitialized", toJson(module.isInitialized)},
          {"isKeyscoutAuthenticated", toJson(module.isKeyscoutAuthenticated)},
          {"KeyscoutEnabled", toJson(module.KeyscoutEnabled)},
          {"KeyscoutLocked", toJson(module.KeyscoutLocked)},
          {"hasdataIntegrity", toJson(module.hasdataIntegrity)},
          {"brandLookup", asJson(module.brandLookup)},
          {"authorizedBrands", keysToJson(module.authorizedBrands)}};
}

}  // namespace keyscout
