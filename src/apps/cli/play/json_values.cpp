#include "apps/cli/play/json_values.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "apps/cli/play/malformed.h"
#include "base/error.h"
#include "base/utf8.h"
#include "platform/local/local_brand_list.h"

namespace keyscout {
namespace {

/// An object that is no keyed collection.
class PlainObject final : public BrandList {
 public:
  std::shared_ptr<BrandCollection> keyedCollection() override {
    throw platformFailure(PlatformError::typeMismatch, u"BrandList");
  }
};

void addBrand(LocalBrandList& brands, const Json& key) {
  if (key.is_object()) {
    brands.addPlain(toText(require(key, "plain")));
  } else {
    brands.add(toText(key));
  }
}

}  // namespace

Json toJson(StringView text) { return toUtf8(text); }

Json toJson(Boolean value) { return value.number(); }

Json variantToJson(const Variant& value) {
  struct {
    Json operator()(std::monostate) const { return nullptr; }
    Json operator()(std::int32_t number) const { return number; }
    Json operator()(double number) const { return number; }
    Json operator()(const String& text) const { return toUtf8(text); }
  } convert;
  return std::visit(convert, value);
}

Json floatToJson(float value) {
  char digits[32];
  const auto written = std::to_chars(std::begin(digits), std::end(digits), value);
  double shortest = 0;
  std::from_chars(std::begin(digits), written.ptr, shortest);
  return shortest;
}

Json keysToJson(const std::shared_ptr<BrandCollection>& brands) {
  // Every brand collection here was made by this host.
  const auto* list = dynamic_cast<const LocalBrandList*>(brands.get());
  if (!list) return nullptr;
  Json keys = Json::array();
  for (const String& key : list->keys()) keys.push_back(toJson(key));
  return keys;
}

String toText(const Json& json) {
  if (!json.is_string()) throw Malformed("a text is expected, not " + json.dump());
  return fromUtf8(json.get_ref<const std::string&>());
}

std::int16_t toInt16(const Json& json) {
  if (json.is_boolean()) return toBoolean(json).number();
  if (!json.is_number_integer()) throw Malformed("a whole number is expected, not " + json.dump());
  const auto number = json.get<std::int64_t>();
  using Limits = std::numeric_limits<std::int16_t>;
  if (number < Limits::min() || number > Limits::max())
    throw platformFailure(PlatformError::overflow, u"play");
  return static_cast<std::int16_t>(number);
}

float toFloat(const Json& json) {
  if (!json.is_number()) throw Malformed("a number is expected, not " + json.dump());
  const auto number = json.get<double>();
  if (std::abs(number) > std::numeric_limits<float>::max())
    throw platformFailure(PlatformError::overflow, u"play");
  return static_cast<float>(number);
}

Boolean toBoolean(const Json& json) {
  if (json.is_boolean()) return json.get<bool>();
  return Boolean::stored(toInt16(json));
}

Variant toVariant(const Json& json) {
  if (json.is_boolean()) return std::int32_t{toBoolean(json).number()};
  if (json.is_number()) return json.get<double>();
  if (json.is_string()) return toText(json);
  return std::monostate{};
}

std::shared_ptr<BrandList> toBrandList(const Json& json) {
  if (json.is_null()) return nullptr;
  if (json.is_string()) return std::make_shared<PlainObject>();
  if (!json.is_array()) throw Malformed("a list of brands is expected, not " + json.dump());
  auto brands = std::make_shared<LocalBrandList>();
  for (const Json& key : json) addBrand(*brands, key);
  return brands;
}

const Json& require(const Json& command, const std::string& name) {
  const auto found = command.find(name);
  if (found == command.end()) throw Malformed("\"" + name + "\" is missing");
  return *found;
}

}  // namespace keyscout
