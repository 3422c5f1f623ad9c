#pragma once

#include "apps/cli/try/screen.h"

namespace keyscout {

/// Where everything stands on a terminal of a given size. The form and the events share the left
/// side, so that a drop-down list has room below its field; the state is on the right.
struct Layout {
  static constexpr int minRows = 20;
  static constexpr int minColumns = 60;

  Layout(int rows, int columns);

  bool fits;
  Rectangle title;
  Rectangle form;
  Rectangle events;
  Rectangle state;
  Rectangle keys;

  // Inside the form.
  Rectangle part;
  Rectangle replaces;
  Rectangle brand;
  Rectangle authorized;
  int labelColumn;
  int labelWidth;

  /// The drop-down list of a field with so many entries, its frame included: at least as wide as
  /// the field, and as its widest entry where the screen is.
  Rectangle dropDown(const Rectangle& field, int entries, int widestEntry) const;
};

}  // namespace keyscout
