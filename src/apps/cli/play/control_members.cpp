#include "apps/cli/play/control_members.h"

#include <functional>
#include <unordered_map>

#include "apps/cli/play/malformed.h"

namespace keyscout {
namespace {

using Control = keyscoutControl;

struct Property {
  std::function<Json(const Control&)> get;
  std::function<void(Control&, const Json&)> set;
};

const std::unordered_map<std::string, Property>& properties() {
  static const std::unordered_map<std::string, Property> table{
      {"text",
       {[](const Control& c) { return toJson(c.text()); },
        [](Control& c, const Json& value) { c.setText(toText(value)); }}},
      {"selStart",
       {[](const Control& c) { return Json(c.selStart()); },
        [](Control& c, const Json& value) { c.setSelStart(toInt16(value)); }}},
      {"selLength",
       {[](const Control& c) { return Json(c.selLength()); },
        [](Control& c, const Json& value) { c.setSelLength(toInt16(value)); }}},
      {"Enabled",
       {[](const Control& c) { return toJson(c.Enabled()); },
        [](Control& c, const Json& value) { c.setEnabled(toBoolean(value)); }}},
      {"ForeColor",
       {[](const Control& c) { return variantToJson(c.ForeColor()); },
        [](Control& c, const Json& value) { c.setForeColor(toVariant(value)); }}},
      {"BackColor",
       {[](const Control& c) { return variantToJson(c.BackColor()); },
        [](Control& c, const Json& value) { c.setBackColor(toVariant(value)); }}},
      {"FontBold",
       {[](const Control& c) { return toJson(c.FontBold()); },
        [](Control& c, const Json& value) { c.setFontBold(toBoolean(value)); }}},
      {"TheToolTipText",
       {[](const Control& c) { return toJson(c.TheToolTipText()); },
        [](Control& c, const Json& value) { c.setTheToolTipText(toText(value)); }}},
      {"isListShowing", {[](const Control& c) { return toJson(c.isListShowing()); }, nullptr}},
      {"Locked",
       {[](const Control& c) { return toJson(c.Locked()); },
        [](Control& c, const Json& value) { c.setLocked(toBoolean(value)); }}},
      {"brand",
       {[](const Control& c) { return toJson(c.brand()); },
        [](Control& c, const Json& value) { c.setBrand(toText(value)); }}},
  };
  return table;
}

const Property& findProperty(const std::string& name) {
  const auto found = properties().find(name);
  if (found == properties().end()) throw Malformed("a control has no property \"" + name + "\"");
  return found->second;
}

struct Method {
  std::size_t arguments;
  std::function<void(Control&, const Json&)> call;
};

const std::unordered_map<std::string, Method>& methods() {
  static const std::unordered_map<std::string, Method> table{
      {"hideList", {0, [](Control& c, const Json&) { c.hideList(); }}},
      {"doit", {0, [](Control& c, const Json&) { c.doit(); }}},
      {"lockKeyscout", {0, [](Control& c, const Json&) { c.lockKeyscout(); }}},
      {"setAuthorizedBrands",
       {1, [](Control& c, const Json& a) { c.setAuthorizedBrands(toBrandList(a[0]).get()); }}},
  };
  return table;
}

}  // namespace

Json getControlProperty(const Control& control, const std::string& name) {
  return findProperty(name).get(control);
}

void setControlProperty(Control& control, const std::string& name, const Json& value) {
  const Property& property = findProperty(name);
  if (!property.set) throw Malformed("\"" + name + "\" is read-only");
  property.set(control, value);
}

bool isSettableControlProperty(const std::string& name) {
  const auto found = properties().find(name);
  return found != properties().end() && found->second.set;
}

Json callControl(Control& control, const std::string& name, const Json& arguments) {
  const auto found = methods().find(name);
  if (found == methods().end()) throw Malformed("a control has no method \"" + name + "\"");
  const Method& method = found->second;
  if (arguments.size() != method.arguments)
    throw Malformed("\"" + name + "\" takes " + std::to_string(method.arguments) + " arguments");
  method.call(control, arguments);
  return nullptr;
}

}  // namespace keyscout
