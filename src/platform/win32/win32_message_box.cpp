#include "platform/win32/win32_message_box.h"

#include "platform/win32/thread_form.h"
#include "platform/win32/wide.h"

namespace keyscout {

MessageBoxButton Win32MessageBox::show(StringView text, std::int32_t style, StringView title) {
  const ThreadForm::FocusPause pause;
  const HWND form = GetAncestor(GetFocus(), GA_ROOT);
  const int button = MessageBoxW(form ? form : GetActiveWindow(), toWide(text).c_str(),
                                 toWide(title).c_str(), static_cast<UINT>(style));
  return button == IDYES ? MessageBoxButton::yes : MessageBoxButton::no;
}

}  // namespace keyscout
