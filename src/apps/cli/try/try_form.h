#pragma once

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "apps/cli/host/catalog_host.h"
#include "apps/cli/try/event_log.h"
#include "apps/cli/try/keys.h"
#include "apps/cli/try/lookup_field.h"

namespace keyscout {

/// The form of an order line: two lookup fields, a field for the brand to look up, and the brands
/// that may be listed. It knows nothing of the screen.
class TryForm {
 public:
  /// Places of the form in the order in which Tab goes through them.
  enum class Stop { part, replaces, brand, authorized };
  static constexpr int stopCount = 4;

  struct BrandChoice {
    String brand;
    bool isChosen = false;
  };

  /// `catalog` must be in service and outlive the form. `updateWanted` is called from inside an
  /// event.
  TryForm(CatalogHost& catalog, EventLog& log, const std::function<void()>& updateWanted);

  LookupField& part() { return part_; }
  LookupField& replaces() { return replaces_; }
  TextBox& brand() { return brand_->textBox(); }
  const std::vector<BrandChoice>& choices() const { return choices_; }
  std::size_t choiceCursor() const { return choiceCursor_; }

  Stop focus() const { return focus_; }
  void moveFocus(Stop stop);
  /// The lookup field that has the focus, null where another place has it.
  LookupField* focusedField();
  /// The lookup field whose drop-down list is shown, null where none is.
  LookupField* openField();

  /// Hands a key to what has the focus.
  void press(const Input& key);
  /// Puts text into the text box that has the focus, also where its list has it at the moment.
  void paste(StringView text);
  /// What a person does with the mouse in the field that has the focus, and in the open list.
  void mouse(MouseReport report);
  void clickEntry(std::int16_t entry);
  void toggleChoice(std::size_t choice);

  /// Takes in a catalog that has been loaded anew: its brands, of which the choices that it still
  /// has stay, and no list that shows entries of the old one.
  void takeInCatalog();

 private:
  PlayableSurface& surfaceOf(Stop stop);
  void pressWidget(const Input& key);
  void spanCharacter(std::int16_t keyCode);
  void pressChoice(std::int16_t keyCode);
  void closeListOnEscape(bool wasOpen);
  void authorizeChosen();
  void readBrands();

  CatalogHost& catalog_;
  MemoryForm& form_;
  std::unique_ptr<PlayableSurface> brand_;
  std::unique_ptr<PlayableSurface> authorized_;
  LookupField part_;
  LookupField replaces_;
  Stop focus_ = Stop::part;
  std::vector<BrandChoice> choices_;
  std::size_t choiceCursor_ = 0;
};

}  // namespace keyscout
