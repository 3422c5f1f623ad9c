#pragma once

#include <cstdint>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "base/boolean.h"
#include "base/text.h"
#include "base/variant.h"
#include "platform/brand_list.h"

namespace keyscout {

/// Members in the order in which they were put in, so that answers read as they are documented.
using Json = nlohmann::ordered_json;

Json toJson(StringView text);
Json toJson(Boolean value);
Json variantToJson(const Variant& value);
/// The shortest decimal number that stands for `value`.
Json floatToJson(float value);
Json keysToJson(const std::shared_ptr<BrandCollection>& brands);

// What a command gives, as the component takes it. All fail with `Malformed` where the JSON is of
// another kind; a number that does not fit 16 bits is an overflow (6), as it is for any host.

String toText(const Json& json);
std::int16_t toInt16(const Json& json);
float toFloat(const Json& json);
Boolean toBoolean(const Json& json);
/// Any JSON value; what is no number and no text becomes the absent value.
Variant toVariant(const Json& json);
/// A list of brand keys, null for absent. {"plain": KEY} stands for a plain string under KEY, and a
/// string in place of the list for an object that is no keyed collection.
std::shared_ptr<BrandList> toBrandList(const Json& json);

/// The member `name` of a command; `Malformed` where it is missing.
const Json& require(const Json& command, const std::string& name);

}  // namespace keyscout
