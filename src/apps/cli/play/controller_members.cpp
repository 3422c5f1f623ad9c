#include "apps/cli/play/controller_members.h"

#include <functional>
#include <unordered_map>

#include "apps/cli/play/malformed.h"

namespace keyscout {
namespace {

using Controller = RWKeyscoutController;

struct Property {
  std::function<Json(const Controller&)> get;
  std::function<void(Controller&, const Json&)> set;
};

using StringGetter = const String& (Controller::*)() const;
using StringSetter = void (Controller::*)(StringView);
using BooleanGetter = Boolean (Controller::*)() const;
using BooleanSetter = void (Controller::*)(Boolean);

Property property(StringGetter get, StringSetter set) {
  return {[get](const Controller& c) { return toJson((c.*get)()); },
          [set](Controller& c, const Json& value) { (c.*set)(toText(value)); }};
}

Property property(BooleanGetter get, BooleanSetter set) {
  return {[get](const Controller& c) { return toJson((c.*get)()); },
          [set](Controller& c, const Json& value) { (c.*set)(toBoolean(value)); }};
}

const Property& findProperty(const std::string& name) {
  static const std::unordered_map<std::string, Property> properties{
      {"KeyscoutDirectory",
       property(&Controller::KeyscoutDirectory, &Controller::setKeyscoutDirectory)},
      {"KeyscoutIndexFile",
       property(&Controller::KeyscoutIndexFile, &Controller::setKeyscoutIndexFile)},
      {"CatalogNumbersDownloadFile", property(&Controller::CatalogNumbersDownloadFile,
                                              &Controller::setCatalogNumbersDownloadFile)},
      {"updateURL", property(&Controller::updateURL, &Controller::setUpdateURL)},
      {"updateURLFile", property(&Controller::updateURLFile, &Controller::setUpdateURLFile)},
      {"updaterExe", property(&Controller::updaterExe, &Controller::setUpdaterExe)},
      {"hasdataIntegrity",
       property(&Controller::hasdataIntegrity, &Controller::setHasdataIntegrity)},
      {"isInitialized", property(&Controller::isInitialized, &Controller::setIsInitialized)},
      {"isKeyscoutAuthenticated",
       property(&Controller::isKeyscoutAuthenticated, &Controller::setIsKeyscoutAuthenticated)},
      {"KeyscoutEnabled", property(&Controller::KeyscoutEnabled, &Controller::setKeyscoutEnabled)},
      {"KeyscoutLocked", property(&Controller::KeyscoutLocked, &Controller::setKeyscoutLocked)},
      {"KeyscoutInitialized",
       {[](const Controller& c) { return toJson(c.KeyscoutInitialized()); }, nullptr}},
      {"authorizedBrands",
       {[](const Controller& c) { return keysToJson(c.authorizedBrands()); },
        [](Controller& c, const Json& value) {
          const auto brands = toBrandList(value);
          c.setAuthorizedBrands(brands ? brands->keyedCollection() : nullptr);
        }}},
  };
  const auto found = properties.find(name);
  if (found == properties.end()) throw Malformed("the controller has no property \"" + name + "\"");
  return found->second;
}

struct Method {
  std::size_t arguments;
  std::function<Json(Controller&, const Json&)> call;
};

const Method* findMethod(const std::string& name) {
  static const std::unordered_map<std::string, Method> methods{
      {"authenticateRequiredProperties",
       {3,
        [](Controller& c, const Json& a) {
          c.authenticateRequiredProperties(toText(a[0]), toText(a[1]), toText(a[2]));
          return Json{};
        }}},
      {"initialize",
       {0,
        [](Controller& c, const Json&) {
          c.initialize();
          return Json{};
        }}},
      {"checkDownloadVersion",
       {0, [](Controller& c, const Json&) { return toJson(c.checkDownloadVersion()); }}},
      {"checkCatalogControlFile",
       {0, [](Controller& c, const Json&) { return toJson(c.checkCatalogControlFile()); }}},
      {"init", {0, [](Controller& c, const Json&) { return toJson(c.init()); }}},
      {"tryToUnlock", {0, [](Controller& c, const Json&) { return toJson(c.tryToUnlock()); }}},
      {"resetLastTableNumber",
       {0, [](Controller& c, const Json&) { return toJson(c.resetLastTableNumber()); }}},
      {"needToUpdate",
       {1,
        [](Controller& c, const Json& a) {
          c.needToUpdate(toInt16(a[0]));
          return Json{};
        }}},
  };
  const auto found = methods.find(name);
  return found == methods.end() ? nullptr : &found->second;
}

}  // namespace

Json getControllerProperty(const Controller& controller, const std::string& name) {
  return findProperty(name).get(controller);
}

void setControllerProperty(Controller& controller, const std::string& name, const Json& value) {
  const Property& property = findProperty(name);
  if (!property.set) throw Malformed("\"" + name + "\" is read-only");
  property.set(controller, value);
}

Json callController(Controller& controller, const std::string& name, const Json& arguments) {
  const Method* const method = findMethod(name);
  if (!method) throw Malformed("the controller has no method \"" + name + "\"");
  if (arguments.size() != method->arguments)
    throw Malformed("\"" + name + "\" takes " + std::to_string(method->arguments) + " arguments");
  return method->call(controller, arguments);
}

bool isPlainControllerMethod(const std::string& name) {
  const Method* const method = findMethod(name);
  return method && method->arguments == 0;
}

}  // namespace keyscout
