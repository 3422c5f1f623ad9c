#pragma once

#include "base/text.h"

namespace keyscout {

/// Letters in the user's locale.
class TextRules {
 public:
  virtual ~TextRules() = default;

  virtual String upperCase(StringView text) const = 0;

  /// Below 0, 0 or above 0 as `a` sorts before, with or after `b` when letter case does not count.
  virtual int compareIgnoringCase(StringView a, StringView b) const = 0;
};

}  // namespace keyscout
