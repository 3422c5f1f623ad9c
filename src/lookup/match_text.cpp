#include "lookup/list_limits.h"
#include "lookup/lookup_engine.h"

namespace keyscout {
namespace {

constexpr Procedure keyIn = lookupProcedure(u"keyInKeyscout");
constexpr Procedure scrollDown = lookupProcedure(u"scrollDownKeyscoutWithBrand");

constexpr StringView failureText =
    u"An error has occurred while looking up catalog numbers for Keyscout.\r\n"
    u"Keyscout has been disabled.  You can continue to work while Keyscout is updated.\r\n\r\n"
    u"Would you like to update Keyscout now?";

}  // namespace

LookupEngine::LookupEngine(Platform& platform, LookupClient& client)
    : platform_(platform), client_(client), tracer_(platform.objectLibrary) {}

void LookupEngine::keyInKeyscout(String& text, const String& brand) {
  handlingFailure([&] { matchText(text, brand); }, [&](const Error&) { respondToFailure(); });
}

void LookupEngine::scrollDownKeyscoutWithBrand(const String& catalogNumber, const String& brand) {
  handlingFailure([&] { extendList(catalogNumber, brand); },
                  [&](const Error&) { respondToFailure(); });
}

void LookupEngine::matchText(String& text, const String& brand) {
  tracer_.enter(keyIn);
  const bool hasGrown = text.size() > fields_.lastLookupText.size();
  if (module_->KeyscoutLocked || (hasGrown && fields_.endOfCatalogReached)) {
    tracer_.exit(keyIn);
    return;
  }

  fields_.endOfCatalogReached = False;
  // No guard object turns drawing on again: each way out has its own moment for that, before or
  // after the list is shown and the exit reported.
  client_.list().setRedraw(false);
  const auto finish = [&] {
    tracer_.exit(keyIn);
    client_.list().setRedraw(true);
  };

  if (hasGrown) {
    dropEntriesBefore(text);
  } else {
    emptyList();
  }
  fields_.lastLookupText = text;

  if (client_.list().entryCount() >= ListLimits::page) {
    client_.showList();
    return finish();
  }
  if (client_.typedText().empty()) {
    fields_.listLoaded = False;
    client_.hideList();
    return finish();
  }
  if (isUnknownBrand(brand)) {
    closeUnloadedList();
    ignoringFailure([&] { tracer_.exit(keyIn); });
    ignoringFailure([&] { client_.list().setRedraw(true); });
    return;
  }

  fields_.tableLoadPending = True;
  text = platform_.textRules.upperCase(text);
  fields_.currentTableIndex = findTableNumber(text);
  if (fields_.currentTableIndex < 0) return finish();

  loadKeyscoutCombo(text, ListLimits::page, brand);
  client_.list().setRedraw(true);
  client_.showList();
  tracer_.exit(keyIn);
}

void LookupEngine::extendList(const String& catalogNumber, const String& brand) {
  tracer_.enter(scrollDown);
  if (module_->KeyscoutLocked || fields_.endOfCatalogReached) {
    tracer_.exit(scrollDown);
    return;
  }
  if (client_.typedText().empty()) {
    closeUnloadedList();
    tracer_.exit(scrollDown);
    return;
  }
  if (isUnknownBrand(brand)) {
    closeUnloadedList();
    // The trace has known this exit under the name of the other lookup from the beginning.
    ignoringFailure([&] { tracer_.exit(keyIn); });
    return;
  }

  fields_.tableLoadPending = True;
  const auto wanted = static_cast<std::int16_t>(client_.list().entryCount() + ListLimits::page);
  loadKeyscoutCombo(catalogNumber, wanted, brand);
  client_.showList();
  tracer_.exit(scrollDown);
}

/// Removes entries from the top while `text` sorts after their first characters.
void LookupEngine::dropEntriesBefore(const String& text) {
  DropDownList& list = client_.list();
  while (list.entryCount() > 0) {
    const String entry = list.entryText(0);
    const StringView beginning = StringView{entry}.substr(0, text.size());
    if (platform_.textRules.compareIgnoringCase(text, beginning) <= 0) return;
    fields_.catalogEntries.remove(entry);
    list.removeFirst();
  }
}

void LookupEngine::emptyList() {
  fields_.catalogEntries = {};
  client_.list().clear();
}

bool LookupEngine::isUnknownBrand(const String& brand) const noexcept {
  try {
    return !brand.empty() && module_->brandLookup && !module_->brandLookup->contains(brand);
  } catch (...) {
    return false;
  }
}

void LookupEngine::closeUnloadedList() {
  client_.hideList();
  fields_.listLoaded = False;
}

void LookupEngine::respondToFailure() noexcept {
  // Whatever failed may fail again, and each of these steps counts for itself.
  ignoringFailure([&] { client_.list().setRedraw(true); });
  ignoringFailure([&] { client_.hideList(); });
  ignoringFailure([&] { module_->KeyscoutLocked = True; });
  ignoringFailure([&] { askForUpdate(); });
}

void LookupEngine::askForUpdate() {
  auto& titles = module_->messageTitleSource;
  if (!titles) titles = platform_.objectLibrary.createMessageTitleSource();
  const auto answer = platform_.messageBox.show(
      failureText, MessageBoxStyle::yesNo | MessageBoxStyle::information, titles->titleText());
  if (answer == MessageBoxButton::yes) client_.raiseUpdateKeyscout();
}

}  // namespace keyscout
