#pragma once

#include "controller/keyscout_controller.h"
#include "fuzz_input.h"
#include "platform/local/local_platform.h"
#include "platform/thread_slot.h"
#include "support/error_of.h"
#include "support/memory_files.h"

namespace keyscout::fuzz {

class YesBox final : public MessageBox {
 public:
  MessageBoxButton show(StringView, std::int32_t, StringView) override {
    return MessageBoxButton::yes;
  }
};

/// A host on files in memory, configured but not started. The thread's state begins afresh.
struct FuzzedHost {
  FuzzedHost() {
    controller.setKeyscoutDirectory(u"catalog");
    controller.setKeyscoutIndexFile(u"index");
    controller.setCatalogNumbersDownloadFile(u"download");
  }

  FreshThreadState freshState;
  test::MemoryFiles files;
  YesBox box;
  LocalPlatform platform{files, box};
  RWKeyscoutController controller{platform};
};

}  // namespace keyscout::fuzz
