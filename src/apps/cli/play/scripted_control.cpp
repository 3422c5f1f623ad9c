#include "apps/cli/play/scripted_control.h"

namespace keyscout {
namespace {

Json placeToJson(const std::optional<FocusPlace>& place) {
  if (!place) return nullptr;
  switch (*place) {
    case FocusPlace::textBox: return "text";
    case FocusPlace::list: return "list";
    case FocusPlace::surface: return "surface";
  }
  return nullptr;
}

Json listToJson(const std::optional<PlayableSurface::ListView>& list) {
  if (!list) return nullptr;
  Json entries = Json::array();
  for (const String& entry : list->entries) entries.push_back(toJson(entry));
  return {{"entries", std::move(entries)},
          {"selected", list->selected},
          {"dropped", list->isDropped},
          {"redraw", list->redraws}};
}

Json recordsToJson(const KeyedCollection<RWKeyscoutCatalogData>& records) {
  Json list = Json::array();
  for (const auto& entry : records) {
    list.push_back({{"CatalogNumber", toJson(entry.item.CatalogNumber())},
                    {"CatalogBrand", toJson(entry.item.CatalogBrand())},
                    {"CatalogIndex", entry.item.CatalogIndex()}});
  }
  return list;
}

}  // namespace

ScriptedControl::ScriptedControl(std::string name, Platform& platform, PlayableForm& form,
                                 CommandNotes& notes, EventHandlers& handlers)
    : name_(std::move(name)),
      notes_(notes),
      handlers_(handlers),
      surface_(form.addSurface()),
      control_(platform, *surface_, *this) {
  surface_->whenListIsClosed([this] { control_.hideList(); });
}

Json ScriptedControl::state() const {
  const TextBox& textBox = surface_->textBox();
  const ControlFields& fields = control_.fields();
  const LookupFields& lookup = control_.lookupFields();
  return {{"text", toJson(textBox.text())},
          {"selStart", textBox.selStart()},
          {"selLength", textBox.selLength()},
          {"focus", placeToJson(surface_->focusPlace())},
          {"list", listToJson(surface_->listView())},
          {"catalogEntries", recordsToJson(lookup.catalogEntries)},
          {"isListShowing", toJson(fields.isListShowing)},
          {"listLoaded", toJson(lookup.listLoaded)},
          {"tableLoadPending", toJson(lookup.tableLoadPending)},
          {"endOfCatalogReached", toJson(lookup.endOfCatalogReached)},
          {"suppressAccept", toJson(fields.suppressAccept)},
          {"suppressKeyDownEvent", toJson(fields.suppressKeyDownEvent)},
          {"skipNextLookup", toJson(fields.skipNextLookup)},
          {"brand", toJson(fields.brand)},
          {"currentTableIndex", lookup.currentTableIndex},
          {"tableSearchStart", lookup.tableSearchStart},
          {"lastLookupText", toJson(lookup.lastLookupText)}};
}

std::vector<EventArgument> ScriptedControl::raised(const std::string& event,
                                                   std::vector<EventArgument> arguments) {
  Json values = Json::array();
  for (const EventArgument& argument : arguments) values.push_back(argument.value);
  notes_.events.push_back({{"control", name_}, {"name", event}, {"args", std::move(values)}});
  handlers_.run(event, control_, arguments);
  return arguments;
}

void ScriptedControl::raisedKey(const std::string& event, std::int16_t& keyCode,
                                std::int16_t& shift) {
  const auto left = raised(event, {{"KeyCode", keyCode}, {"Shift", shift}});
  keyCode = toInt16(left[0].value);
  shift = toInt16(left[1].value);
}

void ScriptedControl::raisedMouse(const std::string& event, std::int16_t& button,
                                  std::int16_t& shift, float& x, float& y) {
  const auto left = raised(
      event, {{"Button", button}, {"Shift", shift}, {"X", floatToJson(x)}, {"Y", floatToJson(y)}});
  button = toInt16(left[0].value);
  shift = toInt16(left[1].value);
  x = toFloat(left[2].value);
  y = toFloat(left[3].value);
}

void ScriptedControl::brandChanged(String& strBrand) {
  strBrand = toText(raised("brandChanged", {{"strBrand", toJson(strBrand)}})[0].value);
}

void ScriptedControl::KeyDown(std::int16_t& KeyCode, std::int16_t& Shift) {
  raisedKey("KeyDown", KeyCode, Shift);
}

void ScriptedControl::KeyUp(std::int16_t& KeyCode, std::int16_t& Shift) {
  raisedKey("KeyUp", KeyCode, Shift);
}

void ScriptedControl::MouseDown(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y) {
  raisedMouse("MouseDown", Button, Shift, X, Y);
}

void ScriptedControl::MouseMove(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y) {
  raisedMouse("MouseMove", Button, Shift, X, Y);
}

void ScriptedControl::MouseUp(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y) {
  raisedMouse("MouseUp", Button, Shift, X, Y);
}

}  // namespace keyscout
