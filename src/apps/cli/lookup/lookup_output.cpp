#include "apps/cli/lookup/lookup_output.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "apps/cli/sentences/in_quotes.h"
#include "base/utf8.h"

namespace keyscout {
namespace {

// Catalog files are written in an 8-bit code page, all of whose characters are one column wide.
std::size_t widthOf(const std::string& text) { return fromUtf8(text).size(); }

}  // namespace

void writeText(std::ostream& out, const LookupAnswer& answer, const TextStyle& style) {
  std::size_t width = 0;
  for (const LookupEntry& entry : answer.entries)
    width = std::max(width, widthOf(visible(std::string_view{entry.number})));
  for (const LookupEntry& entry : answer.entries) {
    const std::string number = visible(std::string_view{entry.number});
    out << style.strong(number);
    if (!entry.brand.empty())
      out << std::string(width - widthOf(number) + 2, ' ')
          << style.faint(visible(std::string_view{entry.brand}));
    out << '\n';
  }
}

void writeJson(std::ostream& out, const LookupRequest& request, const LookupAnswer& answer) {
  using Json = nlohmann::ordered_json;
  Json entries = Json::array();
  for (const LookupEntry& entry : answer.entries)
    entries.push_back({{"number", entry.number}, {"brand", entry.brand}, {"index", entry.index}});
  const Json object{{"text", request.text},
                    {"entries", std::move(entries)},
                    {"endOfCatalog", answer.endsCatalog},
                    {"notes", answer.notes}};
  out << object.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
}

}  // namespace keyscout
