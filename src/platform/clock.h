#pragma once

#include <chrono>

namespace keyscout {

class Clock {
 public:
  virtual ~Clock() = default;

  /// The current date and time, to the second like the times of files.
  virtual std::chrono::sys_seconds now() = 0;
};

}  // namespace keyscout
