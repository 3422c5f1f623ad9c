#pragma once

#include <memory>

#include "platform/object_library.h"

namespace keyscout {

/// Stands in for the sibling object library: traces to the given service, or nowhere where it is
/// null, and titles its boxes "Keyscout".
class LocalLibrary final : public ObjectLibrary {
 public:
  explicit LocalLibrary(std::shared_ptr<TraceService> trace);

  std::shared_ptr<TraceService> createTraceService() override { return trace_; }
  std::shared_ptr<MessageTitleSource> createMessageTitleSource() override;

 private:
  std::shared_ptr<TraceService> trace_;
};

}  // namespace keyscout
