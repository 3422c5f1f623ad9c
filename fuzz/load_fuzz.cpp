// The index and the brand file against a plain reading of their columns.

#include <algorithm>

#include "base/letter_case.h"
#include "fuzzed_host.h"
#include "shared/keyscout_module.h"

using namespace keyscout;

namespace {

String field(const String& line, std::size_t column, std::size_t width) {
  if (line.size() < column) return {};
  return String{trimmed(StringView{line}.substr(column - 1, width))};
}

std::vector<String> spokenLines(std::string_view text) {
  std::vector<String> lines;
  for (const std::string& line : fuzz::linesOf(text)) {
    const String decoded = windows1252().decode(line);
    if (!trimmed(decoded).empty()) lines.push_back(decoded);
  }
  return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::FuzzInput input{data, size};
  fuzz::FuzzedHost host;
  host.files.piece = 1 + input.below(200);
  const std::string_view index = input.section();
  const std::string_view brands = input.section();
  host.files.put(u"index", index);
  host.files.put(u"brandinfo.txt", brands);
  host.controller.initialize();

  const keyscoutModule& shared = keyscoutModule::ofThisThread();
  const std::vector<String> lines = spokenLines(index);
  const std::size_t count = std::min<std::size_t>(lines.size(), 1001);
  fuzz::require(shared.getTableCount() == static_cast<std::int16_t>(count), "count of tables");
  for (std::size_t i = 0; i < count; ++i) {
    const auto subscript = static_cast<std::int16_t>(i);
    fuzz::require(shared.getTableNumber(subscript) == field(lines[i], 1, 10), "table number");
    fuzz::require(shared.getFirstCatalog(subscript) == field(lines[i], 21, 60), "first number");
    fuzz::require(shared.getLastCatalog(subscript) == field(lines[i], 141, 60), "last number");
  }

  const bool isWhole = lines.size() <= 1001;
  fuzz::require(static_cast<bool>(shared.isInitialized) == isWhole, "isInitialized");
  fuzz::require(shared.brandLookup.has_value(), "brands absent");
  if (isWhole)
    for (const String& line : spokenLines(brands))
      fuzz::require(shared.brandLookup->contains(field(line, 1, 50)), "a brand is missing");
  else
    fuzz::require(shared.brandLookup->count() == 0, "brands behind a broken index");
  return 0;
}
