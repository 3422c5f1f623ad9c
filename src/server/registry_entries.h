#pragma once

#include <windows.h>

#include "server/registry_key.h"

namespace keyscout {

/// The classes of the machine or of the user, open to be changed. While it lives the system's own
/// functions write classes there, too.
class ClassesKey {
 public:
  /// `root` is HKEY_LOCAL_MACHINE or HKEY_CURRENT_USER. Fails with E_ACCESSDENIED where the caller
  /// may not change that part of the registry.
  explicit ClassesKey(HKEY root);
  ~ClassesKey();
  ClassesKey(const ClassesKey&) = delete;
  ClassesKey& operator=(const ClassesKey&) = delete;

  HKEY get() const { return key_.get(); }

 private:
  RegistryKey key_;
};

/// Writes what makes hosts find the classes of this library. Fails with the registry's error and
/// leaves what is written by then.
void writeEntries(const ClassesKey& classes);

enum class Removal { nothing, done, refused };

/// Removes what `writeEntries` writes, as far as the library of the other width does not need it.
Removal removeEntries(HKEY root);

/// Where the library of the other width has registered the type library, too: removes no more of it
/// than where this one lies, and returns true.
bool leaveTypeLibraryToOtherWidth(HKEY root);

}  // namespace keyscout
