#include "apps/cli/play/answer.h"

namespace keyscout {

MessageBoxButton ScriptedMessageBox::show(StringView text, std::int32_t style, StringView title) {
  notes_.messages.push_back({{"title", toJson(title)},
                             {"text", toJson(text)},
                             {"style", style},
                             {"answer", button_ == MessageBoxButton::yes ? "yes" : "no"}});
  return button_;
}

Json toJson(const Error& error) {
  return {{"number", error.number()},
          {"source", toJson(error.source())},
          {"description", toJson(error.description())}};
}

Json toJson(const TraceCall& call) {
  Json list =
      Json::array({toJson(nameOf(call.kind)), toJson(call.className), toJson(call.procName)});
  switch (call.kind) {
    case TraceCall::Kind::enterProcedure:
    case TraceCall::Kind::exitProcedure: break;
    case TraceCall::Kind::reportError:
      list.push_back(call.errorNumber);
      list.push_back(toJson(call.errorSource));
      list.push_back(toJson(call.text));
      break;
    case TraceCall::Kind::traceMessage:
    case TraceCall::Kind::logMessage: list.push_back(toJson(call.text)); break;
  }
  list.push_back(call.levelOrLine);
  return list;
}

}  // namespace keyscout
