#include "server/registration.h"

#include <oleauto.h>

#include <string>

#include "base/failure_handling.h"
#include "keyscout_h.h"
#include "platform/win32/instance.h"
#include "server/com/failures.h"
#include "server/com/type_library.h"
#include "server/registry_entries.h"

// The tool chain's headers lack these two.
extern "C" {
HRESULT WINAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* helpFolder);
HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID id, WORD major, WORD minor, LCID locale,
                                        SYSKIND kind);
}

namespace keyscout {
namespace {

constexpr SYSKIND systemKind = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;

void registerTypeLibrary(HKEY root) {
  std::wstring path = modulePath(thisInstance());
  // Named, or else the folder of an older registration stays.
  std::wstring folder = path.substr(0, path.find_last_of(L'\\'));
  const auto library = loadTypeLibrary();
  const auto write = root == HKEY_LOCAL_MACHINE ? &RegisterTypeLib : &RegisterTypeLibForUser;
  require(write(library.get(), path.data(), folder.data()));
}

void removeTypeLibrary(HKEY root) {
  // The system's function takes the interfaces of both widths away, without which no call finds its
  // way to another thread.
  if (leaveTypeLibraryToOtherWidth(root)) return;
  const auto remove = root == HKEY_LOCAL_MACHINE ? &UnRegisterTypeLib : &UnRegisterTypeLibForUser;
  remove(LIBID_Keyscout, 1, 0, LOCALE_NEUTRAL, systemKind);
}

Removal removeFrom(HKEY root) {
  const Removal removal = removeEntries(root);
  // The type library is written last: without the classes it is not there, either.
  if (removal == Removal::nothing) return removal;
  ignoringFailure([&] {
    const ClassesKey classes{root};
    removeTypeLibrary(root);
  });
  return removal;
}

HRESULT registerFor(HKEY root) {
  return asComResult(IID_NULL, [&] {
    const ClassesKey classes{root};
    try {
      writeEntries(classes);
      registerTypeLibrary(root);
    } catch (...) {
      removeFrom(root);
      throw;
    }
  });
}

}  // namespace

HRESULT registerServer() noexcept {
  return asComResult(IID_NULL, [] {
    const HRESULT forMachine = registerFor(HKEY_LOCAL_MACHINE);
    const bool mayNot = forMachine == E_ACCESSDENIED || forMachine == TYPE_E_REGISTRYACCESS;
    if (mayNot) return require(registerFor(HKEY_CURRENT_USER));
    require(forMachine);
    // An older registration for the user would go before the one for the machine.
    removeFrom(HKEY_CURRENT_USER);
  });
}

HRESULT unregisterServer() noexcept {
  return asComResult(IID_NULL, [] {
    const Removal fromMachine = removeFrom(HKEY_LOCAL_MACHINE);
    const Removal fromUser = removeFrom(HKEY_CURRENT_USER);
    const bool isRefused = fromUser == Removal::refused ||
                           (fromMachine == Removal::refused && fromUser == Removal::nothing);
    if (isRefused) throw ComFailure{E_ACCESSDENIED};
  });
}

}  // namespace keyscout
