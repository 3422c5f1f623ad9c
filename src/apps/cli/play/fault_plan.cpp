#include "apps/cli/play/fault_plan.h"

#include <algorithm>

#include "base/error.h"

namespace keyscout {

bool FaultPlan::knows(std::string_view operation) {
  static constexpr std::string_view others[] = {"openFile", "readLine", "enterProcedure",
                                                "exitProcedure"};
  return isOnWidget(operation) || std::ranges::find(others, operation) != std::end(others);
}

bool FaultPlan::isOnWidget(std::string_view operation) {
  static constexpr std::string_view operations[] = {
      "append",     "removeFirst", "clear",   "entryText",    "select",
      "entryCount", "setFocus",    "setText", "showDropDown", "setRedraw"};
  return std::ranges::find(operations, operation) != std::end(operations);
}

void FaultPlan::onCall(std::string_view operation) {
  bool fails = false;
  for (Fault& fault : faults_) {
    if (fault.operation == operation && --fault.callsLeft == 0) fails = true;
  }
  std::erase_if(faults_, [](const Fault& fault) { return fault.callsLeft == 0; });
  if (fails) throw platformFailure(PlatformError::fileAccess, u"play");
}

bool FaultPlan::minds(std::string_view operation) const {
  return std::ranges::any_of(faults_,
                             [&](const Fault& fault) { return fault.operation == operation; });
}

}  // namespace keyscout
