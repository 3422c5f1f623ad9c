#include "platform/win32/win32_text_rules.h"

#include "base/error.h"
#include "platform/win32/wide.h"

namespace keyscout {
namespace {

int lengthOf(const std::wstring& text) { return static_cast<int>(text.size()); }

}  // namespace

String Win32TextRules::upperCase(StringView text) const {
  std::wstring upper = toWide(text);
  CharUpperBuffW(upper.data(), static_cast<DWORD>(upper.size()));
  return fromWide(upper);
}

int Win32TextRules::compareIgnoringCase(StringView a, StringView b) const {
  const std::wstring left = toWide(a);
  const std::wstring right = toWide(b);
  const int order = CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE | SORT_STRINGSORT,
                                   left.c_str(), lengthOf(left), right.c_str(), lengthOf(right));
  if (order == 0) throw platformFailure(PlatformError::invalidArgument, u"TextRules");
  return order - CSTR_EQUAL;
}

}  // namespace keyscout
