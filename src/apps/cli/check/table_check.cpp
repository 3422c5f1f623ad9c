#include "apps/cli/check/table_check.h"

#include <algorithm>

#include "apps/cli/directory/record_bytes.h"
#include "apps/cli/sentences/counted.h"
#include "apps/cli/sentences/in_quotes.h"
#include "base/error.h"
#include "base/numbers.h"

namespace keyscout {
namespace {

// So many digits are a 32-bit number, whatever they are.
constexpr std::size_t surelyFitting = 9;

bool isPlainNumber(std::string_view text) {
  return !text.empty() && text.size() <= surelyFitting &&
         std::ranges::all_of(text, [](char digit) { return digit >= '0' && digit <= '9'; });
}

}  // namespace

void TableCheck::check(const IndexedTable& table, std::size_t position) {
  position_ = position;
  file_ = table.fileName;
  line_ = 0;
  first_ = {};
  brands_.beginTable();
  try {
    readLines(table);
  } catch (const Error& failure) {
    // What cannot be opened has no line of its own; the line that names it has.
    if (line_ == 0) {
      directory_.error(directory_.names.indexFile, table.line,
                       "its table " + file_ + " cannot be read: " + failure.what() +
                           "; a lookup that comes to it fails");
    } else {
      ++line_;
      error(std::string{"cannot be read on: "} + failure.what());
    }
  }
}

void TableCheck::readLines(const IndexedTable& table) {
  const auto file = directory_.open(file_);
  while (!file->atEnd()) {
    const std::string_view bytes = file->readLine();
    ++line_;
    progress_.advance(bytes.size());
    checkLine(bytes);
  }
  if (line_ == 0) {
    directory_.error(file_, 1, "is empty");
  } else if (first_.line != 0) {
    checkAgainstIndex(table, first_, true);
    checkAgainstIndex(table, previous_, false);
  }
}

void TableCheck::checkLine(std::string_view bytes) {
  if (bytes.size() < CatalogLine::minLength) {
    error("has " + counted(bytes.size(), "character") +
          "; a lookup that reads a line of less than 70 fails");
    return;
  }
  const CatalogLine line{bytes};
  const std::string_view number = line.catalogNumber();
  const std::string_view brand = line.brand();
  checkIndexField(line.index());
  if (number.empty()) error("has no catalog number in columns 11 to 70");
  checkOrder(number);
  if (!number.empty() && case_.hasLowerCase(number)) {
    directory_.warning(file_, line_,
                       "number " + directory_.inQuotes(number) +
                           " has small letters; typing is turned into capitals, so no typed text "
                           "leads to it");
    case_.note(number);
  }
  brands_.check(brand, file_, line_);
  brandIndex_.note(brand, position_);
  checkCharacters(bytes, brand);

  previous_.index = line.index();
  previous_.number = number;
  previous_.brand = brand.substr(0, RecordColumns::brand.width);
  previous_.line = line_;
  if (first_.line == 0) {
    previous_.file = file_;
    first_ = previous_;
  }
}

void TableCheck::checkIndexField(std::string_view index) {
  if (isPlainNumber(index)) return;
  try {
    parseInt32(directory_.codePage.decode(index));
  } catch (const Error&) {
    error("index " + directory_.inQuotes(index) +
          " in columns 1 to 10 is not a number of 32 bits; a lookup that lists the line fails");
  }
}

void TableCheck::checkCharacters(std::string_view bytes, std::string_view brand) const {
  // What is behind a brand of any length was told of with the brand.
  if (brand.size() > RecordColumns::brand.width) return;
  if (isUtf8BeyondAscii(bytes))
    directory_.warning(file_, line_, "is UTF-8; a lookup takes its bytes for " + nameOfCodePage());
  else if (const auto strange = strangeCharacterIn(bytes))
    directory_.warning(file_, line_, *strange);
}

void TableCheck::checkOrder(std::string_view number) {
  order_.toKey(number, key_);
  // Nothing stands before the catalog's first line.
  if (previous_.line != 0) {
    if (key_ < previous_.key) {
      error("number " + directory_.inQuotes(number) + " stands below " + placeOfPrevious() +
            "; a lookup misses what is out of order");
    } else if (key_ == previous_.key && !number.empty()) {
      directory_.warning(file_, line_,
                         "number " + directory_.inQuotes(number) + " repeats " + placeOfPrevious() +
                             "; a list shows only one of them");
    }
  }
  std::swap(previous_.key, key_);
}

std::string TableCheck::placeOfPrevious() const {
  return directory_.inQuotes(previous_.number) + " (" + previous_.file + ':' +
         std::to_string(previous_.line) + ')';
}

void TableCheck::checkAgainstIndex(const IndexedTable& table, const Place& found,
                                   bool isFirst) const {
  const CatalogTableEntry& entry = table.entry;
  const std::string& index = directory_.names.indexFile;
  const std::string which = isFirst ? "first" : "last";
  const auto decoded = [&](const std::string& bytes) { return directory_.codePage.decode(bytes); };
  const auto sentence = [&](const std::string& what, const String& named, const String& held) {
    return "gives " + inQuotes(named) + " for the " + which + ' ' + what + ", but " + file_ + ':' +
           std::to_string(found.line) + " has " + inQuotes(held);
  };

  const String& number = isFirst ? entry.firstCatalog : entry.lastCatalog;
  if (number != decoded(found.number))
    directory_.error(index, table.line, sentence("number", number, decoded(found.number)));
  // These two are only written down; no lookup goes by them.
  const String& indexField = isFirst ? entry.firstIndex : entry.lastIndex;
  if (indexField != decoded(found.index))
    directory_.warning(index, table.line, sentence("index", indexField, decoded(found.index)));
  const String& brand = isFirst ? entry.firstBrand : entry.lastBrand;
  const String heldBrand = decoded(found.brand);
  if (brand != trimmed(heldBrand))
    directory_.warning(index, table.line, sentence("brand", brand, heldBrand));
}

}  // namespace keyscout
