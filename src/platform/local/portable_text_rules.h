#pragma once

#include "platform/text_rules.h"

namespace keyscout {

/// The same rules on every system: simple upper case, and ordinal order of the upper-case forms.
/// Catalogs are in ordinal order, so no letter, dash or blank may weigh less than another here.
class PortableTextRules final : public TextRules {
 public:
  String upperCase(StringView text) const override;
  int compareIgnoringCase(StringView a, StringView b) const override;
};

}  // namespace keyscout
