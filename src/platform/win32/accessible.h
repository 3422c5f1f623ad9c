#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace keyscout {

// What a screen reader learns of the widgets, beyond what the system tells of their windows: a
// name, whether the list of a text box is open, and the entries of a list.

/// What WM_GETOBJECT asks for.
struct AccessibleRequest {
  WPARAM flags;
  LPARAM object;
};

// Each gives the answer to that; empty where the system's own has to do.

/// For a text box that is called `name`; `combo` is the combo box with its list, null for none.
std::optional<LRESULT> answerForTextBox(AccessibleRequest request, HWND edit,
                                        const std::wstring& name, HWND combo);
/// For a combo box, or its edit part.
std::optional<LRESULT> answerForPart(AccessibleRequest request, HWND window,
                                     const std::wstring& name);
/// For the list that drops down.
std::optional<LRESULT> answerForList(AccessibleRequest request, HWND list,
                                     const std::wstring& name);

}  // namespace keyscout
