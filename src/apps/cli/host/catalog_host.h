#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "apps/cli/directory/data_directory.h"
#include "apps/cli/host/failure_trace.h"
#include "controller/keyscout_controller.h"
#include "platform/local/local_platform.h"
#include "platform/memory/memory_form.h"
#include "platform/thread_slot.h"

namespace keyscout {

/// The part of a host that has nothing to do with its screen: the platform, the controller and a
/// form of in-memory widgets. One at a time on a thread, since it owns the thread's shared state;
/// it begins with that state as new and leaves it so.
class CatalogHost {
 public:
  /// Both must outlive the host.
  CatalogHost(Files& files, MessageBox& messageBox);
  CatalogHost(const CatalogHost&) = delete;
  CatalogHost& operator=(const CatalogHost&) = delete;

  /// Tells the controller where the catalog is.
  void configure(const DataDirectory& directory);
  /// Does that and brings lookups into service. Fails with `std::runtime_error` where the directory
  /// cannot be used, in the controller's own sentence where it has one.
  void start(const DataDirectory& directory);

  Platform& platform() { return platform_; }
  RWKeyscoutController& controller() { return controller_; }
  MemoryForm& form() { return form_; }
  /// What failed last, as a line of text. Forgets it.
  std::string takeFailure() { return trace_->take(); }

 private:
  FreshThreadState freshState_;
  std::shared_ptr<FailureTrace> trace_ = std::make_shared<FailureTrace>();
  LocalPlatform platform_;
  RWKeyscoutController controller_{platform_};
  MemoryForm form_;
};

/// `text` on one line, for messages that the component breaks into several.
std::string onOneLine(std::string_view text);

}  // namespace keyscout
