#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/decorators/call_hook.h"

namespace keyscout {

/// Makes chosen calls of widgets, files and the trace fail with path or file access error (75).
class FaultPlan final : public CallHook {
 public:
  /// True when `operation` names a call that can be made to fail.
  static bool knows(std::string_view operation);
  /// True when it names one of a widget.
  static bool isOnWidget(std::string_view operation);

  /// The `at`-th call of `operation` from now on will fail, counted from 1.
  void failAt(std::string operation, int at) { faults_.push_back({std::move(operation), at}); }

  void onCall(std::string_view operation) override;
  /// True while a call of `operation` is to fail.
  bool minds(std::string_view operation) const override;

 private:
  struct Fault {
    std::string operation;
    int callsLeft;
  };

  std::vector<Fault> faults_;
};

}  // namespace keyscout
