#include "apps/cli/sentences/in_quotes.h"

#include "base/utf8.h"

namespace keyscout {
namespace {

// As long as the longest field of a record.
constexpr std::size_t maxShown = 60;

bool steersTerminal(char16_t unit) { return unit < 0x20 || (unit >= 0x7F && unit < 0xA0); }

String writtenOut(char16_t unit) {
  constexpr StringView digits = u"0123456789ABCDEF";
  return {u'\\', u'x', digits[unit >> 4], digits[unit & 0xF]};
}

}  // namespace

std::string visible(StringView text) {
  String shown;
  for (const char16_t unit : text) {
    if (steersTerminal(unit))
      shown += writtenOut(unit);
    else
      shown += unit;
  }
  return toUtf8(shown);
}

std::string visible(std::string_view utf8) { return visible(StringView{fromUtf8(utf8)}); }

std::string inQuotes(StringView text) {
  const bool isLong = text.size() > maxShown;
  return '"' + visible(text.substr(0, maxShown)) + (isLong ? "...\"" : "\"");
}

std::string inQuotes(std::string_view bytes, const CodePage& page) {
  // One more than is shown, so that the text tells whether it is long.
  return inQuotes(page.decode(bytes.substr(0, maxShown + 1)));
}

}  // namespace keyscout
