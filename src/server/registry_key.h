#pragma once

#include <windows.h>

namespace keyscout {

/// Owns an open key of the registry; at first none.
class RegistryKey {
 public:
  RegistryKey() = default;
  ~RegistryKey() {
    if (key_) RegCloseKey(key_);
  }
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;

  HKEY get() const { return key_; }
  /// The place for the system to put the key, for an object that has none yet.
  HKEY* put() { return &key_; }

 private:
  HKEY key_ = nullptr;
};

}  // namespace keyscout
