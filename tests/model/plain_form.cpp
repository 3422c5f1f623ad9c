#include "model/plain_form.h"

#include <cctype>
#include <exception>

namespace keyscout::test {

std::string capitals(std::string text) {
  for (char& letter : text) letter = static_cast<char>(std::toupper(letter));
  return text;
}

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
  } catch (const PlainFailure&) {
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
        if (!numberOf_.contains(capitals(entry))) throw PlainFailure{"no record"};
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
  if (!list) throw PlainFailure{"no list"};
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

void PlainField::accept() {
  if (suppressAccept) return;
  const int selected = mustHaveList().selected;
  if (selected == -1) return;
  const std::string entry = list->entries[static_cast<std::size_t>(selected)];
  if (!entry.empty()) {
    if (!numberOf_.contains(capitals(entry))) throw PlainFailure{"no record"};
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

}  // namespace keyscout::test
