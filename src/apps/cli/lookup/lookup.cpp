#include "apps/cli/lookup/lookup.h"

#include <stdexcept>

#include "apps/cli/files/path_text.h"
#include "apps/cli/host/catalog_host.h"
#include "base/utf8.h"
#include "control/keyscout_control.h"
#include "platform/local/local_brand_list.h"
#include "platform/local/silent_message_box.h"

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

  LookupAnswer answer() const {
    LookupAnswer answer;
    answer.endsCatalog = static_cast<bool>(control_.lookupFields().endOfCatalogReached);
    if (!control_.isListShowing()) return answer;
    // The records are the list without the empty lines that fill it up.
    for (const auto& entry : control_.lookupFields().catalogEntries) {
      answer.entries.push_back({toUtf8(entry.item.CatalogNumber()),
                                toUtf8(entry.item.CatalogBrand()), entry.item.CatalogIndex()});
    }
    return answer;
  }

 private:
  void needBrand() override { control_.setBrand(brand_); }

  int entryCount() const {
    return control_.keyscoutList() ? control_.keyscoutList()->entryCount() : 0;
  }

  MemoryForm& form_;
  String brand_;
  std::unique_ptr<PlayableSurface> surface_;
  keyscoutControl control_;
};

}  // namespace

LookupAnswer lookUp(Files& files, const LookupRequest& request) {
  SilentMessageBox messageBox;
  CatalogHost host{files, messageBox};
  host.start(request.directory);

  LookupForm form{host, request.brand};
  form.authorize(request.authorized);
  form.paste(request.text);
  if (request.count) form.walkDownTo(*request.count);
  if (messageBox.wasShown())
    throw std::runtime_error("The lookup failed: " + host.takeFailure() +
                             "\n  To see what is wrong: keyscout check " +
                             pathText(request.directory.path));

  LookupAnswer answer = form.answer();
  if (request.count && answer.entries.size() > static_cast<std::size_t>(*request.count)) {
    answer.entries.resize(static_cast<std::size_t>(*request.count));
    answer.endsCatalog = false;
  }
  return answer;
}

}  // namespace keyscout
