#pragma once

#include <memory>

#include "apps/cli/play/json_values.h"
#include "base/error.h"
#include "platform/local/trace_services.h"
#include "platform/message_box.h"

namespace keyscout {

/// What there is to tell of the command being run, gathered as it comes.
struct CommandNotes {
  Json events = Json::array();
  Json messages = Json::array();
};

/// Answers every box at once with the button chosen, and keeps note of it.
class ScriptedMessageBox final : public MessageBox {
 public:
  explicit ScriptedMessageBox(CommandNotes& notes) : notes_(notes) {}

  void answerWith(MessageBoxButton button) { button_ = button; }
  MessageBoxButton show(StringView text, std::int32_t style, StringView title) override;

 private:
  CommandNotes& notes_;
  MessageBoxButton button_ = MessageBoxButton::no;
};

Json toJson(const Error& error);
/// The call as a list: its operation, then its arguments.
Json toJson(const TraceCall& call);

}  // namespace keyscout
