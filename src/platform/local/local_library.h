#pragma once

#include <memory>
#include <utility>

#include "platform/object_library.h"

namespace keyscout {

/// Stands in for the sibling object library: traces to the given service, titles its boxes
/// "Keyscout".
class LocalLibrary final : public ObjectLibrary {
 public:
  explicit LocalLibrary(std::shared_ptr<TraceService> trace) : trace_(std::move(trace)) {}

  std::shared_ptr<TraceService> createTraceService() override { return trace_; }
  std::shared_ptr<MessageTitleSource> createMessageTitleSource() override;

 private:
  std::shared_ptr<TraceService> trace_;
};

}  // namespace keyscout
