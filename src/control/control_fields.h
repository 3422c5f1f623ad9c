#pragma once

#include "base/boolean.h"
#include "base/text.h"

namespace keyscout {

/// The fields of a control that decide how it answers its widgets; those of its lookups are
/// `LookupFields`.
struct ControlFields {
  /// The brand that lookups filter by; empty for none.
  String brand;
  Boolean isListShowing;
  /// While true, `doit` does nothing.
  Boolean suppressAccept;
  /// While true, the text box's key handler does not raise `KeyDown`.
  Boolean suppressKeyDownEvent;
  /// The next change of the text starts no lookup.
  Boolean skipNextLookup;
};

}  // namespace keyscout
