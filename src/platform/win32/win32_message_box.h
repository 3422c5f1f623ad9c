#pragma once

#include "platform/message_box.h"

namespace keyscout {

/// The message box of Windows, modal to the form that has the focus.
class Win32MessageBox final : public MessageBox {
 public:
  MessageBoxButton show(StringView text, std::int32_t style, StringView title) override;
};

}  // namespace keyscout
