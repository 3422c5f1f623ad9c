#pragma once

#include <memory>

#include "base/text.h"
#include "platform/trace_service.h"

namespace keyscout {

/// The source of the title that message boxes bear.
class MessageTitleSource {
 public:
  virtual ~MessageTitleSource() = default;

  /// `titleText` of the `titleRecord`.
  virtual String titleText() = 0;
};

/// The sibling object library, as far as it is used here: makes the two global objects, each once
/// on a thread, at its first use there.
class ObjectLibrary {
 public:
  virtual ~ObjectLibrary() = default;

  virtual std::shared_ptr<TraceService> createTraceService() = 0;
  virtual std::shared_ptr<MessageTitleSource> createMessageTitleSource() = 0;
};

}  // namespace keyscout
