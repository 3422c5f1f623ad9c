#pragma once

#include "platform/local/trace_services.h"

namespace keyscout {

/// Writes a line for each call to the debugger, and nothing while none is attached.
class DebuggerTrace final : public RecordingTrace {
  void record(TraceCall call) override;
};

}  // namespace keyscout
