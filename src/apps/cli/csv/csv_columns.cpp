#include "apps/cli/csv/csv_columns.h"

#include <algorithm>
#include <optional>
#include <stdexcept>

#include "apps/cli/sentences/in_quotes.h"
#include "base/letter_case.h"
#include "base/utf8.h"

namespace keyscout {
namespace {

// As many as a spreadsheet has.
constexpr std::size_t maxDigits = 5;

std::string asQuoted(const std::string& name) { return inQuotes(fromUtf8(name)); }

template <class IsCalled>
std::optional<std::size_t> only(const std::vector<std::string>& names, IsCalled&& isCalled) {
  const auto found = std::ranges::find_if(names, isCalled);
  if (found == names.end()) return std::nullopt;
  if (std::find_if(found + 1, names.end(), isCalled) != names.end())
    throw std::invalid_argument("More than one column is named " + asQuoted(*found) +
                                "; give the column's number.");
  return static_cast<std::size_t>(found - names.begin());
}

std::optional<std::size_t> positionOf(const std::string& wanted,
                                      const std::vector<std::string>& names) {
  const auto exactly = [&](const std::string& name) { return name == wanted; };
  const auto inAnyLetters = [&](const std::string& name) {
    return equalIgnoringCase(fromUtf8(name), fromUtf8(wanted));
  };
  if (const auto position = only(names, exactly)) return position;
  if (const auto position = only(names, inAnyLetters)) return position;
  const bool isNumber = !wanted.empty() && wanted.size() <= maxDigits &&
                        wanted.find_first_not_of("0123456789") == wanted.npos;
  if (!isNumber || std::stoul(wanted) == 0) return std::nullopt;
  return std::stoul(wanted) - 1;
}

std::string listed(const std::vector<std::string>& names) {
  if (names.empty()) return "; without a header a column is called by its number.";
  std::string list = "; there are";
  for (const std::string& name : names) list += ' ' + asQuoted(name);
  return list + '.';
}

}  // namespace

CsvColumn columnCalled(const std::string& wanted, const std::vector<std::string>& names) {
  const auto position = positionOf(wanted, names);
  if (!position || (!names.empty() && *position >= names.size()))
    throw std::invalid_argument("There is no column " + asQuoted(wanted) + listed(names));
  const std::string number = "column " + std::to_string(*position + 1);
  return {*position, names.empty() ? number : number + ' ' + asQuoted(names[*position])};
}

}  // namespace keyscout
