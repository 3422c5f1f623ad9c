#pragma once

#include "platform/clock.h"

namespace keyscout {

/// The machine's own clock.
class SystemClock final : public Clock {
 public:
  std::chrono::sys_seconds now() override {
    return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  }
};

}  // namespace keyscout
