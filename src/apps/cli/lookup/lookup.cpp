#include "apps/cli/lookup/lookup.h"

#include <stdexcept>

#include "apps/cli/files/path_text.h"
#include "apps/cli/host/catalog_host.h"
#include "apps/cli/host/named_failures.h"
#include "base/letter_case.h"
#include "base/utf8.h"
#include "control/keyscout_control.h"
#include "platform/local/local_brand_list.h"
#include "platform/local/silent_message_box.h"
#include "shared/keyscout_module.h"

namespace keyscout {
namespace {

constexpr auto keyOfPaste = static_cast<std::int16_t>(u'V');

/// A form with one control, and the person who pastes a text into it and walks down its list.
class LookupForm final : private keyscoutControlEvents {
 public:
  LookupForm(CatalogHost& host, const std::string& brand)
      : form_(host.form()),
        brand_(fromUtf8(brand)),
        surface_(form_.addSurface()),
        control_(host.platform(), *surface_, *this) {
    form_.moveFocus(*surface_, FocusPlace::textBox);
  }

  void authorize(const std::vector<std::string>& brands) {
    if (brands.empty()) return;
    const auto list = std::make_shared<LocalBrandList>();
    // A brand that is given twice is authorized once.
    for (const std::string& brand : brands) ignoringFailure([&] { list->add(fromUtf8(brand)); });
    control_.setAuthorizedBrands(list.get());
  }

  void paste(const std::string& text) {
    form_.keyDown(keyOfPaste, Modifier::ctrl);
    form_.paste(fromUtf8(text));
    form_.keyUp(keyOfPaste, Modifier::ctrl);
  }

  /// Presses Down until the list has `count` entries or grows no more.
  void walkDownTo(int count) {
    while (control_.isListShowing() && entryCount() < count) {
      const int before = entryCount();
      const bool wasLast = control_.keyscoutList()->selectedIndex() == before - 1;
      form_.keyDown(KeyCodes::down, 0);
      form_.keyUp(KeyCodes::down, 0);
      if (wasLast && entryCount() == before) return;
    }
  }

  std::vector<LookupEntry> entries() const {
    std::vector<LookupEntry> entries;
    if (!control_.isListShowing()) return entries;
    // The records are the list without the empty lines that fill it up.
    for (const auto& entry : control_.lookupFields().catalogEntries) {
      entries.push_back({toUtf8(entry.item.CatalogNumber()), toUtf8(entry.item.CatalogBrand()),
                         entry.item.CatalogIndex()});
    }
    return entries;
  }

  /// Whether the list goes on, which a control finds out only when it is to add to it.
  bool goesOn() {
    if (!control_.isListShowing()) return false;
    const std::size_t before = control_.lookupFields().catalogEntries.count();
    if (!hasReachedEnd()) walkDownTo(entryCount() + 1);
    return control_.lookupFields().catalogEntries.count() > before || !hasReachedEnd();
  }

 private:
  void needBrand() override { control_.setBrand(brand_); }

  bool hasReachedEnd() const {
    return static_cast<bool>(control_.lookupFields().endOfCatalogReached);
  }
  int entryCount() const {
    return control_.keyscoutList() ? control_.keyscoutList()->entryCount() : 0;
  }

  MemoryForm& form_;
  String brand_;
  std::unique_ptr<PlayableSurface> surface_;
  keyscoutControl control_;
};

/// What in the request itself keeps entries from being listed.
std::vector<std::string> hindrances(const LookupRequest& request) {
  std::vector<std::string> sentences;
  if (request.text.empty()) sentences.emplace_back("the text is empty, and then no list is shown");
  const auto& brands = keyscoutModule::ofThisThread().brandLookup;
  // As brandinfo.txt spells it; empty where it is not there.
  const auto spelled = [&](const std::string& brand) -> std::string {
    if (brands)
      for (const auto& known : *brands)
        if (equalIgnoringCase(*known.key, fromUtf8(brand))) return toUtf8(*known.key);
    return {};
  };
  if (const std::string& brand = request.brand; !brand.empty()) {
    const std::string known = spelled(brand);
    if (known.empty())
      sentences.push_back("brand " + brand + " is not in brandinfo.txt, and then no list is shown");
    else if (known != brand)
      sentences.push_back("brand " + brand + " is spelled " + known +
                          " in brandinfo.txt, and letter case counts");
  }
  for (const std::string& brand : request.authorized)
    if (spelled(brand).empty())
      sentences.push_back("authorized brand " + brand + " is not in brandinfo.txt");
  return sentences;
}

std::string nothingFollows(const LookupRequest& request) {
  std::string sentence = "nothing in the catalog follows " + request.text;
  if (!request.brand.empty()) sentence += " of brand " + request.brand;
  if (!request.authorized.empty()) sentence += " that is authorized";
  return sentence;
}

}  // namespace

LookupAnswer lookUp(Files& files, const LookupRequest& request) {
  SilentMessageBox messageBox;
  NamedFailures named{files};
  CatalogHost host{named, messageBox};
  host.start(request.directory);

  LookupForm form{host, request.brand};
  form.authorize(request.authorized);
  form.paste(request.text);
  if (request.count) form.walkDownTo(*request.count);
  if (messageBox.wasShown())
    throw std::runtime_error("The lookup failed: " + host.takeFailure() +
                             "\n  To see what is wrong: keyscout check " +
                             pathText(request.directory.path));

  LookupAnswer answer{form.entries(), false, hindrances(request)};
  const bool isCut =
      request.count && answer.entries.size() > static_cast<std::size_t>(*request.count);
  if (isCut) answer.entries.resize(static_cast<std::size_t>(*request.count));
  answer.endsCatalog = !request.text.empty() && !isCut && !form.goesOn();
  if (answer.entries.empty() && answer.notes.empty())
    answer.notes.push_back(nothingFollows(request));
  return answer;
}

}  // namespace keyscout
