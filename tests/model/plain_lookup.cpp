// The lookup of a plain field: tables read line by line.

#include <algorithm>
#include <cctype>

#include "model/plain_form.h"

namespace keyscout::test {
namespace {

std::string withoutBlanks(const std::string& text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string numberOn(const std::string& line) {
  return line.size() < 11 ? "" : withoutBlanks(line.substr(10, 60));
}

}  // namespace

void PlainField::lookUp(std::string typed) {
  const bool hasGrown = typed.size() > lastText_.size();
  if (form_.locked || (hasGrown && endOfCatalogReached)) return;
  try {
    endOfCatalogReached = false;
    List& shown = mustHaveList();
    shown.redraws = false;
    if (hasGrown) {
      while (!shown.entries.empty()) {
        const std::string entry = shown.entries.front();
        if (capitals(typed) <= capitals(entry.substr(0, typed.size()))) break;
        if (!numberOf_.contains(capitals(entry))) throw PlainFailure{"no record"};
        numberOf_.erase(capitals(entry));
        brandOf_.erase(capitals(entry));
        shown.entries.erase(shown.entries.begin());
        if (shown.selected >= 0) --shown.selected;
      }
    } else {
      numberOf_.clear();
      brandOf_.clear();
      shown.entries.clear();
      shown.selected = -1;
    }
    lastText_ = typed;
    if (shown.entries.size() >= 9) {
      showList();
      shown.redraws = true;
      return;
    }
    if (brandIsUnknown()) {
      hideList();
      listLoaded = false;
      shown.redraws = true;
      return;
    }
    tableLoadPending = true;
    currentTable = findTable(capitals(typed));
    if (currentTable >= 0) {
      load(capitals(typed), 9);
      shown.redraws = true;
      showList();
    }
    shown.redraws = true;
  } catch (const PlainFailure&) {
    lookupFailed();
  }
}

void PlainField::extend(const std::string& number) {
  if (form_.locked || endOfCatalogReached) return;
  if (text.empty() || brandIsUnknown()) {
    hideList();
    listLoaded = false;
    return;
  }
  try {
    tableLoadPending = true;
    load(number, list->entries.size() + 9);
    showList();
  } catch (const PlainFailure&) {
    lookupFailed();
  }
}

int PlainField::findTable(const std::string& key) {
  const auto& index = form_.catalog->index;
  const auto at = [&](int i) {
    return static_cast<std::size_t>(i) < index.size() ? index[static_cast<std::size_t>(i)]
                                                      : PlainCatalog::Table{};
  };
  if (form_.restartsSearch) searchStart_ = 0;
  form_.restartsSearch = false;
  int i = searchStart_;
  while (i > 0 && !(key > at(i).first && key > at(i).last)) --i;
  while (key > at(i).last) {
    ++i;
    if (i == static_cast<int>(index.size()) || i > 1000) return -1;
  }
  searchStart_ = i;
  return i;
}

void PlainField::load(const std::string& key, std::size_t limit) {
  const auto& index = form_.catalog->index;
  const auto& files = form_.catalog->files;
  const auto position = static_cast<std::size_t>(currentTable);
  if (currentTable < 0) throw PlainFailure{"no table"};
  std::string name = position < index.size() ? index[position].number + ".txt" : ".txt";
  listLoaded = true;
  if (!files.contains(name)) throw PlainFailure{"no file"};
  tableLoadPending = false;

  std::size_t next = 0;
  const auto isFull = [&] { return list->entries.size() >= limit || list->entries.size() >= 999; };
  if (isFull()) return;
  const auto& first = files.at(name);
  while (next < first.size() && key > numberOn(first[next])) ++next;
  // Where no number is so high, the last line is offered.
  if (!first.empty()) offer(first[std::min(next, first.size() - 1)]);
  ++next;
  while (!isFull()) {
    const auto& lines = files.at(name);
    if (next < lines.size()) {
      offer(lines[next++]);
      continue;
    }
    ++currentTable;
    if (currentTable >= static_cast<int>(index.size())) {
      while (list->entries.size() < 8) list->entries.emplace_back();
      endOfCatalogReached = true;
      return;
    }
    name = std::to_string(currentTable) + ".txt";
    if (!files.contains(name)) {
      list->entries.resize(list->entries.size() + 8);
      throw PlainFailure{"missing table"};
    }
    next = 0;
  }
}

void PlainField::offer(const std::string& line) {
  if (line.size() < 70) throw PlainFailure{"short line"};
  const std::string lineBrand = withoutBlanks(line.substr(70));
  const std::string number = numberOn(line);
  if (!brand.empty() && brand != lineBrand) return;
  if (numberOf_.contains(capitals(number))) return;
  const auto& allowed = form_.allowed;
  if (allowed && !allowed->empty() && !allowed->contains(capitals(lineBrand))) return;
  list->entries.push_back(number);
  if (!std::isdigit(line.front())) throw PlainFailure{"no index"};
  numberOf_[capitals(number)] = number;
  brandOf_[capitals(number)] = lineBrand;
}

bool PlainField::brandIsUnknown() const {
  if (brand.empty()) return false;
  return std::ranges::none_of(form_.catalog->brands, [&](const std::string& known) {
    return capitals(known) == capitals(brand);
  });
}

void PlainField::showList() {
  if (tableLoadPending) return;
  dropDown(true);
  isListShowing = true;
}

void PlainField::lookupFailed() {
  if (list) list->redraws = true;
  hideList();
  form_.locked = true;
  ++form_.messages;
  if (form_.userSaysYes) events.emplace_back("UpdateKeyscout");
}

}  // namespace keyscout::test
