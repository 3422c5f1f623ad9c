#pragma once

#include <memory>
#include <optional>

#include "controller/keyscout_controller.h"
#include "fuzz_input.h"
#include "platform/local/local_library.h"
#include "platform/local/portable_text_rules.h"
#include "platform/local/system_clock.h"
#include "platform/local/trace_services.h"
#include "platform/thread_slot.h"
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
  ~FuzzedHost() { ThreadSlot::releaseThisThread(); }
  FuzzedHost(const FuzzedHost&) = delete;
  FuzzedHost& operator=(const FuzzedHost&) = delete;

  test::MemoryFiles files;
  SystemClock clock;
  PortableTextRules rules;
  YesBox box;
  LocalLibrary library{std::make_shared<SilentTrace>()};
  Platform platform{files, clock, windows1252(), rules, box, library};
  RWKeyscoutController controller{platform};
};

/// The number of the error that `action` fails with, 0 where it does not.
template <class Action>
std::int32_t errorOf(Action&& action) {
  try {
    action();
    return 0;
  } catch (const Error& error) {
    return error.number();
  }
}

}  // namespace keyscout::fuzz
