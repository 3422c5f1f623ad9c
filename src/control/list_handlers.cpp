#include "control/keyscout_control.h"
#include "lookup/list_limits.h"

namespace keyscout {
namespace {

bool movesSelection(std::int16_t keyCode) {
  return keyCode == KeyCodes::pageUp || keyCode == KeyCodes::pageDown || keyCode == KeyCodes::up ||
         keyCode == KeyCodes::down;
}

}  // namespace

void keyscoutControl::keyscoutList_KeyDown(std::int16_t& KeyCode, std::int16_t& Shift) {
  static constexpr Procedure procedure =
      controlProcedure(u"keyscoutlist_KeyDown()", u"keyscoutlist_KeyDown");
  tracer_.traced(
      procedure,
      [&] {
        if (Shift == Modifier::alt && fields_.isListShowing) hideList();
        if (!module_->KeyscoutLocked) answerListKey(KeyCode, Shift);
      },
      [&](const Error& error) {
        closeAndLock();
        tracer_.report(procedure, error);
      });
}

void keyscoutControl::answerListKey(std::int16_t keyCode, std::int16_t shift) {
  if (shift == Modifier::alt && keyCode == KeyCodes::up) textBox_.setFocus();
  if (shift != 0) return;

  if (keyCode == KeyCodes::enter) doit();
  if (keyCode == KeyCodes::down) {
    const std::int16_t selected = list().selectedIndex();
    if (selected >= 0 && selected == list().entryCount() - 1) extendList(selected);
  }
  if (keyCode == KeyCodes::up && list().selectedIndex() == 0) returnToText();
  // The list then moves its selection as usual, and the click that it reports must not accept.
  if (movesSelection(keyCode)) fields_.suppressAccept = True;
}

void keyscoutControl::extendList(std::int16_t lastEntry) {
  const String text = list().entryText(lastEntry);
  if (text.empty() || lastEntry >= ListLimits::maxEntries) return;
  const String catalogNumber = lookup_.fields().catalogEntries.item(text).CatalogNumber();
  lookup_.scrollDownKeyscoutWithBrand(catalogNumber, fields_.brand);
}

void keyscoutControl::keyscoutList_KeyUp(std::int16_t& /*KeyCode*/, std::int16_t& /*Shift*/) {
  static constexpr Procedure procedure =
      controlProcedure(u"keyscoutlist_KeyUp()", u"keyscoutlist_KeyUp");
  tracer_.traced(
      procedure,
      [&] {
        if (!module_->KeyscoutLocked) fields_.suppressAccept = False;
      },
      [&](const Error& error) {
        closeAndLock();
        tracer_.report(procedure, error);
      });
}

void keyscoutControl::keyscoutList_Change() {
  static constexpr Procedure procedure =
      controlProcedure(u"keyscoutList_Change()", u"keyscoutList_Change");
  tracer_.traced(
      procedure, [&] { textBox_.setFocus(); },
      [&](const Error& error) { tracer_.report(procedure, error); });
}

void keyscoutControl::keyscoutList_Click() {
  static constexpr Procedure procedure =
      controlProcedure(u"keyscoutList_Click", u"keyscoutList_Click");
  tracer_.traced(
      procedure,
      [&] {
        if (!module_->KeyscoutLocked) doit();
      },
      [&](const Error&) { closeAndLock(); });
}

void keyscoutControl::doit() {
  static constexpr Procedure procedure = controlProcedure(u"doit", u"doit");
  const HostCall call{surface_};
  tracer_.traced(procedure, [&] {
    if (!fields_.suppressAccept) acceptSelectedEntry();
  });
}

void keyscoutControl::acceptSelectedEntry() {
  const std::int16_t selected = list().selectedIndex();
  if (selected == -1) return;
  const String entry = list().entryText(selected);
  if (entry.empty()) return returnToText();
  // A copy, since the host may change the list from inside the events.
  const RWKeyscoutCatalogData accepted = lookup_.fields().catalogEntries.item(entry);
  if (accepted.CatalogNumber().empty()) return returnToText();

  raise([&](auto& host) {
    String strBrand = accepted.CatalogBrand();
    host.brandChanged(strBrand);
  });
  fields_.skipNextLookup = True;
  textBox_.setText(accepted.CatalogNumber());
  returnToText();
  textBox_.setSelStart(static_cast<std::int32_t>(textBox_.text().size()));
}

void keyscoutControl::returnToText() {
  hideList();
  textBox_.setFocus();
}

void keyscoutControl::closeAndLock() {
  hideList();
  ignoringFailure([&] { module_->KeyscoutLocked = True; });
}

}  // namespace keyscout
