#pragma once

#include <windows.h>

namespace keyscout {

/// Keeps the library in memory for as long as it lives: one is part of every object that a host can
/// hold.
class ModuleUse {
 public:
  ModuleUse() noexcept { lock(); }
  ~ModuleUse() { unlock(); }
  ModuleUse(const ModuleUse&) = delete;
  ModuleUse& operator=(const ModuleUse&) = delete;

  static void lock() noexcept;
  static void unlock() noexcept;
  static bool isAny() noexcept;
};

}  // namespace keyscout
