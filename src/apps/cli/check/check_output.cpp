#include "apps/cli/check/check_output.h"

#include <nlohmann/json.hpp>
#include <string>

#include "apps/cli/sentences/counted.h"
#include "apps/cli/sentences/in_quotes.h"

namespace keyscout {
namespace {

using Json = nlohmann::ordered_json;

const char* nameOf(Severity severity) { return severity == Severity::error ? "error" : "warning"; }

std::string dumped(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace

void CheckOutput::add(const Finding& finding) {
  write(finding);
  ++(finding.severity == Severity::error ? errors_ : warnings_);
}

void CheckText::write(const Finding& finding) {
  // The index may name its tables as it likes.
  const std::string file = visible(std::string_view{finding.file});
  const std::string severity = std::string{nameOf(finding.severity)} + ':';
  out() << style_.strong(file + ':' + std::to_string(finding.line) + ':') << ' '
        << (finding.severity == Severity::error ? style_.bad(severity) : style_.doubtful(severity))
        << ' ' << finding.sentence << '\n';
}

void CheckText::finish(const CheckSummary& summary) {
  const std::string found = counted(errors(), "error") + ", " + counted(warnings(), "warning");
  const bool isClean = errors() + warnings() == 0;
  out() << (isClean ? style_.good(found) : style_.strong(found)) << " in "
        << counted(summary.lines, "line") << " of " << counted(summary.tables, "table") << '\n';
}

CheckJson::CheckJson(std::ostream& output) : CheckOutput(output) { out() << "{\"findings\":["; }

void CheckJson::write(const Finding& finding) {
  const Json object{{"file", finding.file},
                    {"line", finding.line},
                    {"severity", nameOf(finding.severity)},
                    {"sentence", finding.sentence}};
  out() << (errors() + warnings() == 0 ? "\n" : ",\n") << dumped(object);
}

void CheckJson::finish(const CheckSummary& summary) {
  const Json object{{"errors", errors()},
                    {"warnings", warnings()},
                    {"lines", summary.lines},
                    {"tables", summary.tables}};
  out() << "],\n\"summary\":" << dumped(object) << "}\n";
}

}  // namespace keyscout
