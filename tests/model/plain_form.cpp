#include "model/plain_form.h"

#include <algorithm>
#include <cctype>
#include <exception>
#include <stdexcept>

namespace keyscout::test {
namespace {

/// Any failure; which number it has is for other tests.
struct Failed : std::runtime_error {
  using std::runtime_error::runtime_error;
};

std::string capitals(std::string text) {
  for (char& letter : text) letter = static_cast<char>(std::toupper(letter));
  return text;
}

std::string withoutBlanks(const std::string& text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string numberOn(const std::string& line) {
  return line.size() < 11 ? "" : withoutBlanks(line.substr(10, 60));
}

}  // namespace

void PlainForm::handle(const std::function<void()>& answer) {
  ++depth_;
  std::exception_ptr failure;
  try {
    answer();
  } catch (...) {
    failure = std::current_exception();
  }
  while (depth_ == 1 && !waiting_.empty()) {
    const auto report = waiting_.front();
    waiting_.pop_front();
    report();
  }
  --depth_;
  if (failure) std::rethrow_exception(failure);
}

void PlainForm::moveFocus(PlainField* field, Place to) {
  if (focused == field && (!field || place == to)) return;
  handle([&] {
    PlainField* const last = focused;
    const Place lastPlace = place;
    focused = field;
    place = to;
    if (last && lastPlace == Place::text) waiting_.emplace_back([=] { last->textLostFocus(); });
    if (last && last != field) waiting_.emplace_back([=] { last->focusLeft(); });
    if (field && to == Place::text) waiting_.emplace_back([=] { field->textGotFocus(); });
  });
}

// A person

void PlainField::press(PlainForm& form, int key, int shift) {
  PlainField* const field = form.focused;
  if (!field) return;
  if (form.place == PlainForm::Place::list) {
    form.handle([&] { field->listKeyDown(key, shift); });
    if (shift == 0) field->moveSelection(key);
  } else {
    form.handle([&] { field->textKeyDown(key, shift); });
    const std::size_t caret = field->caret;
    if (shift == 0 && key == 37 && caret > 0) --field->caret;
    if (shift == 0 && key == 36) field->caret = 0;
    if (shift == 0 && key == 35) field->caret = field->text.size();
    if (shift == 0 && key == 8 && caret > 0) {
      field->text.erase(caret - 1, 1);
      --field->caret;
      form.handle([&] { field->textChanged(); });
    }
  }
  // The key comes up in whatever has the focus by now.
  if (form.place == PlainForm::Place::text)
    form.handle([&] { form.focused->textKeyUp(key, shift); });
  else if (!form.locked)
    form.focused->suppressAccept = false;
}

void PlainField::type(PlainForm& form, char character) {
  PlainField* const field = form.focused;
  if (!field) return;
  const int key = std::toupper(character);
  if (form.place == PlainForm::Place::list) {
    // The focus goes back to the text, where the character belongs.
    form.handle([&] { field->listKeyDown(key, 0); });
    form.moveFocus(field, PlainForm::Place::text);
  } else {
    form.handle([&] { field->textKeyDown(key, 0); });
  }
  field->text.insert(field->caret, 1, character);
  ++field->caret;
  form.handle([&] { field->textChanged(); });
  form.handle([&] { field->textKeyUp(key, 0); });
}

void PlainField::paste(PlainForm& form, const std::string& pasted) {
  PlainField* const field = form.focused;
  if (!field) return;
  field->text.insert(field->caret, pasted);
  field->caret += pasted.size();
  form.handle([&] { field->textChanged(); });
}

void PlainField::click(int entry) {
  form_.moveFocus(this, PlainForm::Place::list);
  list->selected = entry;
  list->isDropped = false;
  form_.handle([&] { listClicked(); });
}

void PlainField::releaseMouse() {
  form_.handle([&] {
    events.emplace_back("MouseUp(1,0,1,1)");
    if (isListShowing) hideList();
  });
}

// The host

void PlainField::setText(const std::string& newText) {
  form_.handle([&] {
    const bool wasEnabled = form_.enabled;
    form_.enabled = false;
    writeText(newText);
    form_.enabled = wasEnabled;
  });
}

void PlainField::doit() {
  form_.handle([&] { accept(); });
}

void PlainField::hideList() {
  form_.handle([&] {
    suppressAccept = true;
    dropDown(false);
    suppressAccept = false;
    isListShowing = false;
  });
}

// The reports

void PlainField::textGotFocus() {
  if (!list) list = List{};
  suppressAccept = false;
}

void PlainField::textLostFocus() {
  if (!isListShowing) removeList();
  suppressAccept = false;
}

void PlainField::focusLeft() {
  if (isListShowing) hideList();
  isListShowing = false;
}

/// Runs a handler: what fails in it closes the list and locks lookups.
void PlainField::answering(const std::function<void()>& body) {
  try {
    body();
  } catch (const Failed&) {
    handlerFailed();
  }
}

void PlainField::handlerFailed() {
  hideList();
  form_.locked = true;
}

void PlainField::textChanged() {
  events.emplace_back("needBrand");
  if (!form_.locked) {
    if (!skipNextLookup_) {
      suppressAccept = true;
      if (text.empty()) {
        endOfCatalogReached = false;
        hideList();
      } else if (form_.enabled && list) {
        lookUp(text);
      }
      suppressAccept = false;
    }
    skipNextLookup_ = false;
  }
  events.emplace_back("Change");
}

void PlainField::textKeyDown(int key, int shift) {
  answering([&] {
    if (shift == 4 && isListShowing) hideList();
    const bool isFree = !form_.locked && shift == 0;
    const auto hasList = [&] { return isFree && isListShowing && form_.enabled && listLoaded; };
    if (key == 40 && hasList()) {
      mustHaveList();
      form_.moveFocus(this, PlainForm::Place::list);
      select(0);
    }
    if (key == 38 && hasList()) hideList();
    if (key == 13 && hasList()) {
      if (mustHaveList().selected >= 0) {
        suppressAccept = false;
        accept();
        suppressAccept = true;
        suppressKeyDown_ = true;
      } else {
        hideList();
      }
    }
    if (!suppressKeyDown_)
      events.push_back("KeyDown(" + std::to_string(key) +
                       (shift == 0 ? ")" : "," + std::to_string(shift) + ")"));
    suppressKeyDown_ = false;
  });
}

void PlainField::textKeyUp(int key, int shift) {
  suppressAccept = true;
  events.push_back("KeyUp(" + std::to_string(key) +
                   (shift == 0 ? ")" : "," + std::to_string(shift) + ")"));
}

void PlainField::listKeyDown(int key, int shift) {
  answering([&] {
    if (shift == 4 && isListShowing) hideList();
    if (form_.locked) return;
    if (key == 38 && shift == 4) form_.moveFocus(this, PlainForm::Place::text);
    if (shift != 0) return;
    if (key == 13) accept();
    const int last = static_cast<int>(list->entries.size()) - 1;
    if (key == 40 && last >= 0 && list->selected == last) {
      const std::string entry = list->entries.back();
      if (!entry.empty() && list->selected < 999) {
        if (!numberOf_.contains(capitals(entry))) throw Failed{"no record"};
        extend(numberOf_[capitals(entry)]);
      }
    }
    if (key == 38 && list->selected == 0) {
      hideList();
      form_.moveFocus(this, PlainForm::Place::text);
    }
    if (key == 33 || key == 34 || key == 38 || key == 40) suppressAccept = true;
  });
}

void PlainField::listClicked() {
  answering([&] {
    if (!form_.locked) accept();
  });
}

// The widgets

PlainField::List& PlainField::mustHaveList() {
  if (!list) throw Failed{"no list"};
  return *list;
}

void PlainField::writeText(const std::string& newText) {
  text = newText;
  caret = 0;
  form_.handle([&] { textChanged(); });
}

void PlainField::removeList() {
  list.reset();
  // What had the focus is gone, and nothing else gets it.
  if (form_.focused != this || form_.place != PlainForm::Place::list) return;
  form_.focused = nullptr;
  form_.handle([&] { form_.waiting_.emplace_back([this] { focusLeft(); }); });
}

void PlainField::select(int entry) {
  if (list->entries.empty()) return;
  list->selected = entry;
  form_.handle([&] { listClicked(); });
}

void PlainField::moveSelection(int key) {
  if (!list) return;
  const int last = static_cast<int>(list->entries.size()) - 1;
  const int from = list->selected;
  int to = from;
  if (key == 40) to = from + 1;
  if (key == 34) to = from < 0 ? 0 : from + 7;
  if (from >= 0 && key == 38) to = from - 1;
  if (from >= 0 && key == 33) to = from - 7;
  if (from >= 0 && key == 36) to = 0;
  if (from >= 0 && key == 35) to = last;
  if (last < 0 || to == from) return;
  to = std::clamp(to, 0, last);
  if (to == from) return;
  list->selected = to;
  form_.handle([&] { listClicked(); });
}

void PlainField::dropDown(bool drops) {
  if (!list) return;
  const bool closes = list->isDropped && !drops;
  list->isDropped = drops;
  if (closes && list->selected >= 0) form_.handle([&] { listClicked(); });
}

// The lookup

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
        if (!numberOf_.contains(capitals(entry))) throw Failed{"no record"};
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
  } catch (const Failed&) {
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
  } catch (const Failed&) {
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
  if (currentTable < 0) throw Failed{"no table"};
  std::string name = position < index.size() ? index[position].number + ".txt" : ".txt";
  listLoaded = true;
  if (!files.contains(name)) throw Failed{"no file"};
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
      throw Failed{"missing table"};
    }
    next = 0;
  }
}

void PlainField::offer(const std::string& line) {
  if (line.size() < 70) throw Failed{"short line"};
  const std::string lineBrand = withoutBlanks(line.substr(70));
  const std::string number = numberOn(line);
  if (!brand.empty() && brand != lineBrand) return;
  if (numberOf_.contains(capitals(number))) return;
  const auto& allowed = form_.allowed;
  if (allowed && !allowed->empty() && !allowed->contains(capitals(lineBrand))) return;
  list->entries.push_back(number);
  if (!std::isdigit(line.front())) throw Failed{"no index"};
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

void PlainField::accept() {
  if (suppressAccept) return;
  const int selected = mustHaveList().selected;
  if (selected == -1) return;
  const std::string entry = list->entries[static_cast<std::size_t>(selected)];
  if (!entry.empty()) {
    if (!numberOf_.contains(capitals(entry))) throw Failed{"no record"};
    const std::string number = numberOf_[capitals(entry)];
    const std::string lineBrand = brandOf_[capitals(entry)];
    events.push_back(lineBrand.empty() ? "brandChanged" : "brandChanged(" + lineBrand + ")");
    skipNextLookup_ = true;
    writeText(number);
  }
  hideList();
  form_.moveFocus(this, PlainForm::Place::text);
  if (!entry.empty()) caret = text.size();
}

void PlainField::lookupFailed() {
  if (list) list->redraws = true;
  hideList();
  form_.locked = true;
  ++form_.messages;
  if (form_.userSaysYes) events.emplace_back("UpdateKeyscout");
}

}  // namespace keyscout::test
