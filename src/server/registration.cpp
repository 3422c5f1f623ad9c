#include "server/registration.h"

#include <comcat.h>
#include <oleauto.h>

#include <string>
#include <vector>

#include "keyscout_h.h"
#include "platform/win32/instance.h"
#include "server/com/failures.h"
#include "server/com/type_library.h"
#include "server/control/control_object.h"

// The tool chain's headers lack these two.
extern "C" {
HRESULT WINAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* helpFolder);
HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID id, WORD major, WORD minor, LCID locale,
                                        SYSKIND kind);
}

namespace keyscout {
namespace {

constexpr wchar_t classesPath[] = L"Software\\Classes\\";
constexpr int toolboxPicture = 101;

struct RegisteredClass {
  const CLSID& id;
  const wchar_t* name;  // the programmatic identifier without its version
  const wchar_t* title;
  bool isControl;
};

const RegisteredClass registeredClasses[] = {
    {CLSID_RWKeyscoutController, L"Keyscout.RWKeyscoutController", L"Keyscout catalog controller",
     false},
    {CLSID_keyscoutControl, L"Keyscout.keyscoutControl", L"Keyscout catalog number lookup", true},
    {CLSID_BrandList, L"Keyscout.BrandList", L"Keyscout list of brands", false},
    {CLSID_BrandItem, L"Keyscout.BrandItem", L"Keyscout brand", false},
};

struct RegistryValue {
  std::wstring key;   // below the classes
  std::wstring name;  // empty for the key's own
  std::wstring text;
};

std::wstring textOf(REFGUID id) {
  wchar_t text[40] = L"";
  StringFromGUID2(id, text, 40);
  return text;
}

std::wstring pathOfLibrary() {
  wchar_t path[MAX_PATH] = L"";
  GetModuleFileNameW(thisInstance(), path, MAX_PATH);
  return path;
}

std::wstring keyOf(const RegisteredClass& served) { return L"CLSID\\" + textOf(served.id); }

std::vector<RegistryValue> valuesOf(const RegisteredClass& served) {
  const std::wstring name = served.name;
  const std::wstring versioned = name + L".1";
  const std::wstring id = textOf(served.id);
  const std::wstring key = keyOf(served);
  std::vector<RegistryValue> values = {
      {name, L"", served.title},
      {name + L"\\CLSID", L"", id},
      {name + L"\\CurVer", L"", versioned},
      {versioned, L"", served.title},
      {versioned + L"\\CLSID", L"", id},
      {key, L"", served.title},
      {key + L"\\InprocServer32", L"", pathOfLibrary()},
      {key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
      {key + L"\\ProgID", L"", versioned},
      {key + L"\\VersionIndependentProgID", L"", name},
      {key + L"\\TypeLib", L"", textOf(LIBID_Keyscout)},
      {key + L"\\Version", L"", L"1.0"},
      {key + L"\\Programmable", L"", L""},
  };
  if (!served.isControl) return values;
  const std::vector<RegistryValue> more = {
      {key + L"\\Control", L"", L""},
      {key + L"\\Implemented Categories\\" + textOf(CATID_Control), L"", L""},
      {key + L"\\MiscStatus", L"", L"0"},
      {key + L"\\MiscStatus\\1", L"", std::to_wstring(controlMiscStatus)},
      {key + L"\\ToolboxBitmap32", L"", pathOfLibrary() + L", " + std::to_wstring(toolboxPicture)},
  };
  values.insert(values.end(), more.begin(), more.end());
  return values;
}

void write(HKEY root, const RegistryValue& value) {
  HKEY key = nullptr;
  const LSTATUS opened = RegCreateKeyExW(root, (classesPath + value.key).c_str(), 0, nullptr, 0,
                                         KEY_WRITE, nullptr, &key, nullptr);
  if (opened != ERROR_SUCCESS) throw ComFailure{HRESULT_FROM_WIN32(static_cast<DWORD>(opened))};
  const auto bytes = static_cast<DWORD>((value.text.size() + 1) * sizeof(wchar_t));
  const LSTATUS written =
      RegSetValueExW(key, value.name.empty() ? nullptr : value.name.c_str(), 0, REG_SZ,
                     std::bit_cast<const BYTE*>(value.text.c_str()), bytes);
  RegCloseKey(key);
  if (written != ERROR_SUCCESS) throw ComFailure{HRESULT_FROM_WIN32(static_cast<DWORD>(written))};
}

void removeClasses(HKEY root) {
  const auto remove = [&](const std::wstring& key) {
    RegDeleteTreeW(root, (classesPath + key).c_str());
    RegDeleteKeyW(root, (classesPath + key).c_str());
  };
  for (const RegisteredClass& served : registeredClasses) {
    remove(keyOf(served));
    remove(served.name);
    remove(served.name + std::wstring{L".1"});
  }
}

constexpr SYSKIND systemKind = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;

void registerFor(HKEY root) {
  for (const RegisteredClass& served : registeredClasses)
    for (const RegistryValue& value : valuesOf(served)) write(root, value);
  std::wstring path = pathOfLibrary();
  const auto library = loadTypeLibrary();
  require(root == HKEY_LOCAL_MACHINE ? RegisterTypeLib(library.get(), path.data(), nullptr)
                                     : RegisterTypeLibForUser(library.get(), path.data(), nullptr));
}

void removeFrom(HKEY root) {
  removeClasses(root);
  if (root == HKEY_LOCAL_MACHINE)
    UnRegisterTypeLib(LIBID_Keyscout, 1, 0, LOCALE_NEUTRAL, systemKind);
  else
    UnRegisterTypeLibForUser(LIBID_Keyscout, 1, 0, LOCALE_NEUTRAL, systemKind);
}

}  // namespace

HRESULT registerServer() noexcept {
  const auto attempt = [](HKEY root) {
    const HRESULT result = guarded(IID_NULL, [&] { registerFor(root); });
    if (FAILED(result)) guarded(IID_NULL, [&] { removeFrom(root); });
    return result;
  };
  const HRESULT forMachine = attempt(HKEY_LOCAL_MACHINE);
  const bool mayNot = forMachine == E_ACCESSDENIED || forMachine == TYPE_E_REGISTRYACCESS;
  return mayNot ? attempt(HKEY_CURRENT_USER) : forMachine;
}

HRESULT unregisterServer() noexcept {
  return guarded(IID_NULL, [] {
    removeFrom(HKEY_LOCAL_MACHINE);
    removeFrom(HKEY_CURRENT_USER);
  });
}

}  // namespace keyscout
