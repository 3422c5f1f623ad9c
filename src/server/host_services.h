#pragma once

#include "platform/object_library.h"
#include "server/host_object.h"

namespace keyscout {

/// A host's object as the trace service. What an error says is handed over as its number, its
/// source and its description.
class HostTrace final : public TraceService {
 public:
  /// Fails with type mismatch (13) where `object` lacks one of the members.
  explicit HostTrace(ComPtr<IDispatch> object);

  const ComPtr<IDispatch>& object() const { return object_.get(); }

  void enterProcedure(StringView className, StringView procName, std::int32_t traceLevel) override;
  void exitProcedure(StringView className, StringView procName, std::int32_t traceLevel) override;
  void reportError(StringView className, StringView procName, const Error& error,
                   std::int32_t line) override;
  void traceMessage(StringView className, StringView procName, StringView text,
                    std::int32_t traceLevel) override;
  void logMessage(StringView className, StringView procName, StringView text,
                  std::int32_t traceLevel) override;

 private:
  HostObject object_;
  DISPID enterProcedure_;
  DISPID exitProcedure_;
  DISPID reportError_;
  DISPID traceMessage_;
  DISPID logMessage_;
};

/// A host's object as the source of the title of message boxes.
class HostTitle final : public MessageTitleSource {
 public:
  /// Fails with type mismatch (13) where `object` has no `titleRecord`.
  explicit HostTitle(ComPtr<IDispatch> object);

  const ComPtr<IDispatch>& object() const { return object_.get(); }

  /// Fails with type mismatch (13) where the record or its text is not to be had.
  String titleText() override;

 private:
  HostObject object_;
  DISPID titleRecord_;
};

}  // namespace keyscout
