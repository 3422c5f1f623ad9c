#pragma once

#include <string_view>

namespace keyscout {

/// Is told of every call that code makes on a widget, a file or the trace, before the call does
/// anything. What it throws is the call's failure, and the call then changes nothing.
class CallHook {
 public:
  virtual ~CallHook() = default;
  virtual void onCall(std::string_view operation) = 0;

  /// False when calls of `operation` need not go by for the time being.
  virtual bool minds(std::string_view /*operation*/) const { return true; }
};

}  // namespace keyscout
