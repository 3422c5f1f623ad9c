#pragma once

#include "platform/text_rules.h"

namespace keyscout {

/// Letters in the locale that the user chose in Windows. Hyphens and apostrophes sort like any
/// other sign, since a catalog number is no word.
class Win32TextRules final : public TextRules {
 public:
  String upperCase(StringView text) const override;
  int compareIgnoringCase(StringView a, StringView b) const override;
};

}  // namespace keyscout
