#include "server/registry_entries.h"

#include <comcat.h>

#include <bit>
#include <string>
#include <vector>

#include "keyscout_h.h"
#include "platform/win32/instance.h"
#include "server/com/failures.h"
#include "server/control/control_object.h"

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
    {CLSID_keyscoutControl, L"Keyscout.keyscoutControl", controlTitle, true},
    {CLSID_BrandList, L"Keyscout.BrandList", L"Keyscout list of brands", false},
    {CLSID_BrandItem, L"Keyscout.BrandItem", L"Keyscout brand", false},
    {CLSID_HostServices, L"Keyscout.HostServices", L"Keyscout services of the host", false},
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

std::wstring keyOf(const RegisteredClass& served) { return L"CLSID\\" + textOf(served.id); }

std::vector<RegistryValue> valuesOf(const RegisteredClass& served) {
  const std::wstring path = modulePath(thisInstance());
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
      {key + L"\\InprocServer32", L"", path},
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
      {key + L"\\ToolboxBitmap32", L"", path + L", " + std::to_wstring(toolboxPicture)},
  };
  values.insert(values.end(), more.begin(), more.end());
  return values;
}

void requireWritten(LSTATUS status) {
  if (status != ERROR_SUCCESS) throw ComFailure{HRESULT_FROM_WIN32(static_cast<DWORD>(status))};
}

void write(HKEY classes, const RegistryValue& value) {
  RegistryKey key;
  requireWritten(RegCreateKeyExW(classes, value.key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr,
                                 key.put(), nullptr));
  const auto bytes = static_cast<DWORD>((value.text.size() + 1) * sizeof(wchar_t));
  requireWritten(RegSetValueExW(key.get(), value.name.empty() ? nullptr : value.name.c_str(), 0,
                                REG_SZ, std::bit_cast<const BYTE*>(value.text.c_str()), bytes));
}

constexpr bool is64Bit = sizeof(void*) == 8;
constexpr REGSAM otherWidth = is64Bit ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

bool isThere(HKEY root, const std::wstring& below, REGSAM view) {
  RegistryKey key;
  return RegOpenKeyExW(root, (classesPath + below).c_str(), 0, KEY_QUERY_VALUE | view, key.put()) ==
         ERROR_SUCCESS;
}

/// Whether the library of the other width has registered the class. What is below CLSID is kept
/// for each width, the names of classes are there once for both.
bool isOfOtherWidth(HKEY root, const RegisteredClass& served) {
  return isThere(root, keyOf(served), otherWidth);
}

/// Where the type library of a width lies.
std::wstring typeLibraryKey(bool of64Bit) {
  return L"TypeLib\\" + textOf(LIBID_Keyscout) +
         (of64Bit ? L"\\1.0\\0\\win64" : L"\\1.0\\0\\win32");
}

}  // namespace

ClassesKey::ClassesKey(HKEY root) {
  requireWritten(RegCreateKeyExW(root, L"Software\\Classes", 0, nullptr, 0, KEY_READ | KEY_WRITE,
                                 nullptr, key_.put(), nullptr));
  // Systems differ in where the functions for type libraries write.
  RegOverridePredefKey(HKEY_CLASSES_ROOT, key_.get());
}

ClassesKey::~ClassesKey() { RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr); }

void writeEntries(const ClassesKey& classes) {
  for (const RegisteredClass& served : registeredClasses)
    for (const RegistryValue& value : valuesOf(served)) write(classes.get(), value);
}

Removal removeEntries(HKEY root) {
  Removal removal = Removal::nothing;
  const auto remove = [&](const std::wstring& key) {
    const LSTATUS removed = RegDeleteTreeW(root, (classesPath + key).c_str());
    if (removed == ERROR_FILE_NOT_FOUND) return;
    if (removed != ERROR_SUCCESS)
      removal = Removal::refused;
    else if (removal == Removal::nothing)
      removal = Removal::done;
  };
  for (const RegisteredClass& served : registeredClasses) {
    remove(keyOf(served));
    if (isOfOtherWidth(root, served)) continue;
    remove(served.name);
    remove(served.name + std::wstring{L".1"});
  }
  return removal;
}

bool leaveTypeLibraryToOtherWidth(HKEY root) {
  // Systems differ in whether both widths share the key.
  const std::wstring other = typeLibraryKey(!is64Bit);
  if (!isThere(root, other, 0) && !isThere(root, other, otherWidth)) return false;
  RegDeleteTreeW(root, (classesPath + typeLibraryKey(is64Bit)).c_str());
  return true;
}

}  // namespace keyscout
