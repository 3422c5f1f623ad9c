#include "apps/cli/try/try_form.h"

#include <algorithm>

#include "apps/cli/try/text_columns.h"
#include "platform/local/local_brand_list.h"
#include "shared/keyscout_module.h"

namespace keyscout {

TryForm::TryForm(CatalogHost& catalog, EventLog& log, const std::function<void()>& updateWanted)
    : catalog_(catalog),
      form_(catalog.form()),
      brand_(form_.addSurface()),
      authorized_(form_.addSurface()),
      part_(catalog, "part", {log, [this] { return brand().text(); }, updateWanted}),
      replaces_(catalog, "repl", {log, [this] { return brand().text(); }, updateWanted}) {
  readBrands();
  moveFocus(Stop::part);
}

PlayableSurface& TryForm::surfaceOf(Stop stop) {
  switch (stop) {
    case Stop::part: return part_.surface();
    case Stop::replaces: return replaces_.surface();
    case Stop::brand: return *brand_;
    case Stop::authorized: return *authorized_;
  }
  return part_.surface();
}

void TryForm::moveFocus(Stop stop) {
  focus_ = stop;
  form_.moveFocus(surfaceOf(stop),
                  stop == Stop::authorized ? FocusPlace::surface : FocusPlace::textBox);
}

LookupField* TryForm::focusedField() {
  if (focus_ == Stop::part) return &part_;
  if (focus_ == Stop::replaces) return &replaces_;
  return nullptr;
}

LookupField* TryForm::openField() {
  for (LookupField* const field : {&part_, &replaces_}) {
    const auto list = field->surface().listView();
    if (list && list->isDropped) return field;
  }
  return nullptr;
}

void TryForm::press(const Input& key) {
  if (key.keyCode == KeyCodes::tab && (key.shift & ~Modifier::shift) == 0) {
    const int step = key.shift == 0 ? 1 : stopCount - 1;
    moveFocus(static_cast<Stop>((static_cast<int>(focus_) + step) % stopCount));
  } else if (focus_ == Stop::authorized) {
    pressChoice(key.keyCode);
  } else {
    const bool wasOpen = openField() != nullptr;
    pressWidget(key);
    if (key.keyCode == KeyCodes::escape) closeListOnEscape(wasOpen);
  }
  // A list that is removed takes the focus with it.
  if (!form_.focusedSurface()) moveFocus(focus_);
}

void TryForm::paste(StringView text) {
  if (focus_ == Stop::authorized) return;
  moveFocus(focus_);
  form_.paste(text);
}

/// A text box takes code units one by one; a person takes a character with all its marks for one.
void TryForm::spanCharacter(std::int16_t keyCode) {
  TextBox& box = surfaceOf(focus_).textBox();
  if (box.selLength() > 0) return;
  const String text = box.text();
  const auto caret = static_cast<std::size_t>(box.selStart());
  const bool isBackwards = keyCode == KeyCodes::backspace || keyCode == KeyCodes::left;
  const std::size_t begin = isBackwards ? characterBefore(text, caret) : caret;
  const std::size_t end = isBackwards ? caret : characterBehind(text, caret);
  if (end - begin < 2) return;
  switch (keyCode) {
    case KeyCodes::backspace:
    case KeyCodes::deleteKey:
      box.setSelStart(static_cast<std::int32_t>(begin));
      box.setSelLength(static_cast<std::int32_t>(end - begin));
      break;
    // The key itself goes on by the last unit.
    case KeyCodes::left: box.setSelStart(static_cast<std::int32_t>(begin + 1)); break;
    case KeyCodes::right: box.setSelStart(static_cast<std::int32_t>(end - 1)); break;
    default: break;
  }
}

void TryForm::pressWidget(const Input& key) {
  const bool isInTextBox = surfaceOf(focus_).focusPlace() == FocusPlace::textBox;
  if (isInTextBox && key.shift == 0) spanCharacter(key.keyCode);
  // The controls take no line end; a plain text box of one line has no use for it either.
  if (focus_ == Stop::brand && key.keyCode == KeyCodes::enter) return;
  form_.keyDown(key.keyCode, key.shift, key.character);
  if (key.secondUnit != 0) form_.keyDown(key.keyCode, key.shift, key.secondUnit);
  form_.keyUp(key.keyCode, key.shift);
}

/// The controls leave Escape to their host, which closes the list with it.
void TryForm::closeListOnEscape(bool wasOpen) {
  LookupField* const field = focusedField();
  if (!wasOpen || !field) return;
  field->control().hideList();
  moveFocus(focus_);
}

void TryForm::pressChoice(std::int16_t keyCode) {
  if (choices_.empty()) return;
  const std::size_t last = choices_.size() - 1;
  switch (keyCode) {
    case KeyCodes::left:
    case KeyCodes::up: choiceCursor_ -= choiceCursor_ > 0 ? 1 : 0; break;
    case KeyCodes::right:
    case KeyCodes::down: choiceCursor_ = std::min(choiceCursor_ + 1, last); break;
    case KeyCodes::home: choiceCursor_ = 0; break;
    case KeyCodes::end: choiceCursor_ = last; break;
    case u' ':
    case KeyCodes::enter: toggleChoice(choiceCursor_); break;
    default: break;
  }
}

void TryForm::mouse(MouseReport report) {
  constexpr std::int16_t leftButton = 1;
  surfaceOf(focus_).mouse(report, leftButton, 0, 0, 0);
}

void TryForm::clickEntry(std::int16_t entry) {
  if (LookupField* const field = openField()) field->surface().click(entry);
  if (!form_.focusedSurface()) moveFocus(focus_);
}

void TryForm::toggleChoice(std::size_t choice) {
  choiceCursor_ = choice;
  choices_[choice].isChosen = !choices_[choice].isChosen;
  authorizeChosen();
}

void TryForm::authorizeChosen() {
  auto list = std::make_shared<LocalBrandList>();
  for (const BrandChoice& choice : choices_)
    if (choice.isChosen) list->add(choice.brand);
  // An empty list authorizes every brand.
  catalog_.controller().setAuthorizedBrands(std::move(list));
}

void TryForm::takeInCatalog() {
  readBrands();
  // A list that is closed when the focus leaves is removed, and its entries with it.
  for (LookupField* const field : {&part_, &replaces_}) field->control().hideList();
  form_.leaveFocus();
  moveFocus(focus_);
}

void TryForm::readBrands() {
  const auto& brands = keyscoutModule::ofThisThread().brandLookup;
  std::vector<BrandChoice> choices;
  if (brands)
    for (const auto& entry : *brands) choices.push_back({*entry.key, false});
  std::ranges::sort(choices, {}, &BrandChoice::brand);
  for (BrandChoice& choice : choices) {
    const auto same = std::ranges::find(choices_, choice.brand, &BrandChoice::brand);
    choice.isChosen = same != choices_.end() && same->isChosen;
  }
  choices_ = std::move(choices);
  choiceCursor_ = 0;
  authorizeChosen();
}

}  // namespace keyscout
