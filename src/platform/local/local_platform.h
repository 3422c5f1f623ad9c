#pragma once

#include <memory>
#include <utility>

#include "platform/local/local_library.h"
#include "platform/local/native_code_page.h"
#include "platform/local/portable_text_rules.h"
#include "platform/local/system_clock.h"
#include "platform/platform.h"

namespace keyscout {

/// A platform for hosts without the sibling object library: the system's clock and code
/// page, the same rules for text on every system, and the files, the message box and the trace that
/// the host gives it.
class LocalPlatform : public Platform {
 public:
  /// The host's files and message box must outlive the platform. Without a trace it is silent.
  LocalPlatform(Files& hostFiles, MessageBox& hostBox,
                std::shared_ptr<TraceService> trace = nullptr)
      : Platform{hostFiles, clock_, nativeCodePage(), textRules_, hostBox, library_},
        library_(std::move(trace)) {}
  LocalPlatform(const LocalPlatform&) = delete;
  LocalPlatform& operator=(const LocalPlatform&) = delete;

 private:
  SystemClock clock_;
  PortableTextRules textRules_;
  LocalLibrary library_;
};

}  // namespace keyscout
