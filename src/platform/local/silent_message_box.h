#pragma once

#include "platform/message_box.h"

namespace keyscout {

/// For hosts at which nobody sits to be asked: answers No at once, and remembers that it was asked.
class SilentMessageBox final : public MessageBox {
 public:
  MessageBoxButton show(StringView /*text*/, std::int32_t /*style*/,
                        StringView /*title*/) override {
    wasShown_ = true;
    return MessageBoxButton::no;
  }

  bool wasShown() const { return wasShown_; }

 private:
  bool wasShown_ = false;
};

}  // namespace keyscout
