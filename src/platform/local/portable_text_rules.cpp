#include "platform/local/portable_text_rules.h"

#include <algorithm>

#include "base/letter_case.h"

namespace keyscout {

String PortableTextRules::upperCase(StringView text) const { return keyscout::upperCase(text); }

int PortableTextRules::compareIgnoringCase(StringView a, StringView b) const {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    const int difference = keyscout::upperCase(a[i]) - keyscout::upperCase(b[i]);
    if (difference != 0) return difference;
  }
  return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

}  // namespace keyscout
