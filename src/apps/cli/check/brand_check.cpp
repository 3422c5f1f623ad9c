#include "apps/cli/check/brand_check.h"

#include "apps/cli/sentences/in_quotes.h"
#include "base/error.h"
#include "base/letter_case.h"
#include "base/utf8.h"
#include "shared/data_format/brand_line.h"
#include "shared/data_format/directory_files.h"

namespace keyscout {
namespace {

const std::string fileName = toUtf8(DirectoryFiles::brands);

// More distinct brands than any catalog has; beyond them some are reported more than once.
constexpr std::size_t maxSettled = 65536;

/// The brand that somebody may have meant who took the columns of the item for those of the name:
/// what stands before two blanks, or before a word that begins where the item does. Empty where
/// there is nothing of that kind.
std::string_view codeBeforeText(std::string_view line) {
  constexpr std::size_t itemColumn = BrandLine<char>::textColumns.first;
  const std::string_view key = BrandLine{line}.code();
  if (const auto blanks = key.find("  "); blanks != key.npos) return key.substr(0, blanks);
  const bool beginsWord =
      line.size() >= itemColumn && line[itemColumn - 1] != ' ' && line[itemColumn - 2] == ' ';
  return beginsWord ? trimmed(line.substr(0, itemColumn - 1)) : std::string_view{};
}

}  // namespace

void BrandCheck::readFile() {
  std::uint64_t line = 0;
  try {
    const auto file = directory_.open(fileName);
    while (!file->atEnd()) {
      ++line;
      checkLine(file->readLine(), line);
    }
    isComplete_ = true;
  } catch (const Error& failure) {
    directory_.error(fileName, line + 1,
                     std::string{"cannot be read: "} + failure.what() +
                         "; a start-up without brands leaves the catalog unloaded");
  }
}

void BrandCheck::checkLine(std::string_view bytes, std::uint64_t line) {
  const std::string_view key = BrandLine{bytes}.code();
  if (trimmed(bytes).empty()) return;
  if (key.empty()) {
    directory_.error(fileName, line, "has no brand in columns 1 to 50");
    return;
  }
  const String spelling = directory_.codePage.decode(key);
  const auto [first, isNew] = known_.try_emplace(upperCase(spelling), Known{spelling, line});
  if (!isNew) {
    directory_.warning(fileName, line,
                       "brand " + inQuotes(spelling) + " stands on line " +
                           std::to_string(first->second.line) + " already; the first one counts");
  } else if (const std::string_view code = codeBeforeText(bytes); !code.empty()) {
    withTextBehind_.try_emplace(upperCase(directory_.codePage.decode(code)), Known{spelling, line});
  }
}

void BrandCheck::beginTable() {
  settled_.clear();
  latest_.clear();
}

void BrandCheck::check(std::string_view brand, const std::string& file, std::uint64_t line) {
  if (brand == latest_) return;
  // Of any length, and not to be kept.
  if (brand.size() > RecordColumns::brand.width) {
    directory_.warning(file, line,
                       "brand " + directory_.inQuotes(brand) + " has " +
                           std::to_string(brand.size()) + " characters; none of " + fileName +
                           " has more than 50");
    return;
  }
  latest_ = brand;
  if (settled_.contains(brand)) return;
  if (settled_.size() == maxSettled) settled_.clear();
  settled_.emplace(brand);
  compare(brand, file, line);
}

void BrandCheck::compare(std::string_view brand, const std::string& file, std::uint64_t line) {
  if (brand.empty() || !isComplete_) return;
  const String spelling = directory_.codePage.decode(brand);
  const auto found = known_.find(upperCase(spelling));
  if (found == known_.end() && tellOfTextBehind(upperCase(spelling))) return;
  if (found == known_.end()) {
    directory_.warning(file, line,
                       "brand " + inQuotes(spelling) + " is not in " + fileName +
                           "; a control that is set to it lists nothing");
  } else if (found->second.spelling != spelling) {
    directory_.warning(file, line,
                       "brand " + inQuotes(spelling) + " is spelled " +
                           inQuotes(found->second.spelling) + " in " + fileName +
                           "; letter case counts when a list is filtered by brand");
  }
}

/// True where the brand file has the brand, but with text behind it.
bool BrandCheck::tellOfTextBehind(const String& code) {
  const auto found = withTextBehind_.find(code);
  if (found == withTextBehind_.end()) return false;
  Known& brand = found->second;
  if (brand.isToldOf) return true;
  brand.isToldOf = true;
  directory_.error(fileName, brand.line,
                   "columns 1 to 50 are the brand's key, so this brand is known as " +
                       inQuotes(brand.spelling) + "; its name may only begin in column 51");
  return true;
}

}  // namespace keyscout
