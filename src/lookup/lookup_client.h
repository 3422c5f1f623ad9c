#pragma once

#include "base/text.h"
#include "platform/widgets.h"

namespace keyscout {

/// What the lookup engine asks of the control that it works for.
class LookupClient {
 public:
  virtual ~LookupClient() = default;

  /// The list to fill; fails with object not set (91) while the control has none.
  virtual DropDownList& list() = 0;
  virtual String typedText() const = 0;

  /// Drop the list down and close it. Neither fails.
  virtual void showList() = 0;
  virtual void hideList() = 0;

  /// Tells the host that the user wants the catalog updated.
  virtual void raiseUpdateKeyscout() = 0;
};

}  // namespace keyscout
