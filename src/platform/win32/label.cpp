#include "platform/win32/label.h"

#include <array>

namespace keyscout {
namespace {

bool isLabel(HWND window) {
  std::array<wchar_t, 16> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return lstrcmpiW(name.data(), L"Static") == 0;
}

std::wstring textOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(
      static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

/// `&Number` is read as Number, and `Nuts && Bolts` as Nuts & Bolts.
std::wstring withoutMnemonic(const std::wstring& text) {
  std::wstring result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == L'&' && ++i == text.size()) break;
    result += text[i];
  }
  return result;
}

}  // namespace

std::wstring labelBefore(HWND window) {
  // A container may give each control a window of its own to stand on: the label stands before
  // that.
  for (; window && (GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD); window = GetParent(window))
    if (const HWND before = GetWindow(window, GW_HWNDPREV))
      return isLabel(before) ? withoutMnemonic(textOf(before)) : std::wstring{};
  return {};
}

}  // namespace keyscout
