#include "server/host_services.h"

namespace keyscout {

HostTrace::HostTrace(ComPtr<IDispatch> object)
    : object_(std::move(object), u"traceService"),
      enterProcedure_(object_.member(u"enterProcedure")),
      exitProcedure_(object_.member(u"exitProcedure")),
      reportError_(object_.member(u"reportError")),
      traceMessage_(object_.member(u"traceMessage")),
      logMessage_(object_.member(u"logMessage")) {}

void HostTrace::enterProcedure(StringView className, StringView procName, std::int32_t traceLevel) {
  HostArguments arguments;
  arguments.add(className).add(procName).add(traceLevel);
  object_.call(enterProcedure_, arguments.inOrderOfCalls());
}

void HostTrace::exitProcedure(StringView className, StringView procName, std::int32_t traceLevel) {
  HostArguments arguments;
  arguments.add(className).add(procName).add(traceLevel);
  object_.call(exitProcedure_, arguments.inOrderOfCalls());
}

void HostTrace::reportError(StringView className, StringView procName, const Error& error,
                            std::int32_t line) {
  HostArguments arguments;
  arguments.add(className).add(procName);
  arguments.add(error.number()).add(error.source()).add(error.description()).add(line);
  object_.call(reportError_, arguments.inOrderOfCalls());
}

void HostTrace::traceMessage(StringView className, StringView procName, StringView text,
                             std::int32_t traceLevel) {
  HostArguments arguments;
  arguments.add(className).add(procName).addByValue(text).add(traceLevel);
  object_.call(traceMessage_, arguments.inOrderOfCalls());
}

void HostTrace::logMessage(StringView className, StringView procName, StringView text,
                           std::int32_t traceLevel) {
  HostArguments arguments;
  arguments.add(className).add(procName).addByValue(text).add(traceLevel);
  object_.call(logMessage_, arguments.inOrderOfCalls());
}

HostTitle::HostTitle(ComPtr<IDispatch> object)
    : object_(std::move(object), u"messageTitleSource"),
      titleRecord_(object_.member(u"titleRecord")) {}

String HostTitle::titleText() {
  OwnedVariant record;
  OwnedVariant object;
  OwnedVariant text;
  OwnedVariant plain;
  const bool hasRecord = object_.read(titleRecord_, nullptr, record) &&
                         SUCCEEDED(VariantChangeType(&object, &record, 0, VT_DISPATCH)) &&
                         object.pdispVal;
  if (hasRecord) {
    const HostObject titled{ComPtr<IDispatch>{object.pdispVal}, u"messageTitleSource"};
    if (titled.read(titled.member(u"titleText"), nullptr, text) &&
        SUCCEEDED(VariantChangeType(&plain, &text, 0, VT_BSTR)))
      return String{viewOf(plain.bstrVal)};
  }
  throw platformFailure(PlatformError::typeMismatch, u"messageTitleSource");
}

}  // namespace keyscout
