// Where keyscout.dll registers itself, played on two empty keys that stand for the machine's and
// the user's part of the registry.

#include <gtest/gtest.h>

#include <aclapi.h>
#include <sddl.h>

#include <filesystem>
#include <map>

#include "keyscout_h.h"
#include "support/temporary_folder.h"
#include "support/test_form.h"

namespace keyscout {
namespace {

constexpr wchar_t playground[] = L"Software\\Keyscout.RegistrationTest";
constexpr wchar_t controlClass[] = L"CLSID\\{8DC9DEA3-00F1-485C-AB67-39522C69C52F}";

constexpr wchar_t mayBeRead[] = L"D:(A;;KR;;;WD)";
// Some systems let a key go that may be read; this one may not even be opened.
constexpr wchar_t mayNotBeOpened[] = L"D:(D;;KA;;;WD)";

/// The path of a key below the classes.
std::wstring classPath(const std::wstring& below) { return L"Software\\Classes\\" + below; }

/// Values by "key\name"; a key's own, or that it is there, as "key\".
using Dump = std::map<std::wstring, std::wstring>;

void dumpInto(Dump& dump, HKEY key, const std::wstring& path) {
  wchar_t name[300] = L"";
  for (DWORD i = 0;; ++i) {
    DWORD length = 300;
    wchar_t text[1000] = L"";
    DWORD bytes = sizeof text;
    if (RegEnumValueW(key, i, name, &length, nullptr, nullptr, std::bit_cast<BYTE*>(&text),
                      &bytes) != ERROR_SUCCESS)
      break;
    dump[path + name] = text;
  }
  for (DWORD i = 0;; ++i) {
    DWORD length = 300;
    if (RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
      break;
    HKEY child = nullptr;
    const std::wstring below = path + name + L'\\';
    dump[below];
    if (RegOpenKeyExW(key, name, 0, KEY_READ, &child) != ERROR_SUCCESS) continue;
    dumpInto(dump, child, below);
    RegCloseKey(child);
  }
}

/// What one has and the other has not, for people.
std::string difference(const Dump& is, const Dump& expected) {
  std::string text;
  const auto missing = [&](const char* mark, const Dump& in, const Dump& from) {
    for (const auto& [key, value] : in)
      if (const auto at = from.find(key); at == from.end() || at->second != value)
        text += mark + narrow(key) + " = " + narrow(value) + "\n";
  };
  missing("unexpected ", is, expected);
  missing("missing ", expected, is);
  return text;
}

std::wstring pathOfRegistered() {
  wchar_t path[MAX_PATH] = L"";
  DWORD bytes = sizeof path;
  RegGetValueW(HKEY_CLASSES_ROOT, (std::wstring{controlClass} + L"\\InprocServer32").c_str(),
               nullptr, RRF_RT_REG_SZ, nullptr, path, &bytes);
  return path;
}

class Registration : public testing::Test {
 protected:
  Registration() : path_(pathOfRegistered()), library_(LoadLibraryW(path_.c_str())) {
    RegDeleteTreeW(HKEY_CURRENT_USER, playground);
    machine_ = make(L"\\machine");
    user_ = make(L"\\user");
    for (const HKEY root : {machine_, user_})
      for (const wchar_t* always : {L"CLSID", L"Interface", L"TypeLib"})
        RegCloseKey(classesOf(root, always));
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine_);
    RegOverridePredefKey(HKEY_CURRENT_USER, user_);
  }
  ~Registration() override {
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    for (const auto& [root, path] : refused_) allow(root, path);
    RegCloseKey(machine_);
    RegCloseKey(user_);
    RegDeleteTreeW(HKEY_CURRENT_USER, playground);
    FreeLibrary(library_);
  }

  HRESULT call(const char* entryPoint) {
    const auto function = std::bit_cast<HRESULT(WINAPI*)()>(GetProcAddress(library_, entryPoint));
    return function ? function() : E_NOTIMPL;
  }
  HRESULT registerIt() { return call("DllRegisterServer"); }
  HRESULT removeIt() { return call("DllUnregisterServer"); }

  static Dump dumpOf(HKEY root) {
    Dump dump;
    dumpInto(dump, root, {});
    return dump;
  }
  Dump machine() const { return dumpOf(machine_); }
  Dump user() const { return dumpOf(user_); }

  static HKEY classesOf(HKEY root, const std::wstring& below = {}) {
    HKEY key = nullptr;
    RegCreateKeyExW(root, classPath(below).c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                    nullptr);
    return key;
  }
  static void permit(HKEY root, const std::wstring& below, const wchar_t* rights) {
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(root, classPath(below).c_str(), 0, READ_CONTROL | WRITE_DAC, &key),
              ERROR_SUCCESS);
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(rights, SDDL_REVISION_1,
                                                                     &descriptor, nullptr));
    EXPECT_EQ(RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, descriptor), ERROR_SUCCESS);
    LocalFree(descriptor);
    RegCloseKey(key);
  }
  /// From now on no one may change the key `below` the classes.
  void refuse(HKEY root, const std::wstring& below = {}, const wchar_t* rights = mayBeRead) {
    RegCloseKey(classesOf(root, below));
    permit(root, below, rights);
    refused_.emplace_back(root, below);
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(root, classPath(below).c_str(), 0, KEY_WRITE, &key),
              ERROR_ACCESS_DENIED)
        << "nothing is enforced here";
  }
  static void allow(HKEY root, const std::wstring& below) {
    permit(root, below, L"D:(A;;KA;;;WD)");
  }

  std::wstring path_;
  HMODULE library_;
  HKEY machine_ = nullptr;
  HKEY user_ = nullptr;

 private:
  static HKEY make(const wchar_t* name) {
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, (playground + std::wstring{name}).c_str(), 0, nullptr, 0,
                    KEY_ALL_ACCESS, nullptr, &key, nullptr);
    return key;
  }
  std::vector<std::pair<HKEY, std::wstring>> refused_;
};

TEST_F(Registration, GoesToTheMachineWhereItMay) {
  const Dump before = machine();
  EXPECT_EQ(registerIt(), S_OK);
  const Dump registered = machine();
  const auto server = registered.find(classPath(controlClass) + L"\\InprocServer32\\");
  ASSERT_NE(server, registered.end());
  EXPECT_EQ(narrow(server->second), narrow(path_));
  EXPECT_EQ(difference(user(), before), "");
  EXPECT_EQ(registerIt(), S_OK);
  EXPECT_EQ(difference(machine(), registered), "");
  EXPECT_EQ(removeIt(), S_OK);
  EXPECT_EQ(difference(machine(), before), "");
  EXPECT_EQ(difference(user(), before), "");
  EXPECT_EQ(removeIt(), S_OK) << "where there is nothing";
  EXPECT_EQ(difference(machine(), before), "");
  EXPECT_EQ(difference(user(), before), "");
}

TEST_F(Registration, GoesToTheUserWhereTheMachineRefuses) {
  const Dump before = machine();
  ASSERT_EQ(registerIt(), S_OK);
  const Dump registered = machine();
  ASSERT_EQ(removeIt(), S_OK);
  ASSERT_EQ(difference(machine(), before), "");

  struct Case {
    std::wstring key;
    const wchar_t* rights;
  };
  // All of the classes, or a key that comes after others have been written.
  for (const Case& with : {Case{{}, mayBeRead}, Case{L"Keyscout.BrandItem", mayNotBeOpened}}) {
    SCOPED_TRACE(narrow(with.key));
    refuse(machine_, with.key, with.rights);
    const Dump refusing = machine();
    EXPECT_EQ(registerIt(), S_OK);
    EXPECT_EQ(difference(machine(), refusing), "") << "nothing is left behind";
    EXPECT_EQ(difference(user(), registered), "") << "the same as for the machine";
    EXPECT_EQ(removeIt(), S_OK);
    EXPECT_EQ(difference(user(), before), "");
    EXPECT_EQ(difference(machine(), refusing), "");
    allow(machine_, with.key);
  }
}

TEST_F(Registration, FailsWhereBothRefuse) {
  refuse(machine_);
  refuse(user_);
  const Dump before = machine();
  EXPECT_EQ(registerIt(), E_ACCESSDENIED);
  EXPECT_EQ(difference(machine(), before), "");
  EXPECT_EQ(difference(user(), before), "");
}

TEST_F(Registration, TheMachineTakesTheUsersPlace) {
  const Dump before = user();
  refuse(machine_);
  ASSERT_EQ(registerIt(), S_OK);
  const Dump registered = user();
  allow(machine_, {});
  EXPECT_EQ(registerIt(), S_OK);
  EXPECT_EQ(difference(machine(), registered), "");
  EXPECT_EQ(difference(user(), before), "");
}

TEST_F(Registration, RemovalStopsAtWhatTheCallerMayNotChange) {
  const Dump before = user();
  ASSERT_EQ(registerIt(), S_OK);
  refuse(machine_);
  refuse(machine_, controlClass, mayNotBeOpened);
  EXPECT_EQ(registerIt(), S_OK) << "a second one, for the user";
  EXPECT_NE(difference(user(), before), "");
  EXPECT_EQ(removeIt(), S_OK);
  EXPECT_EQ(difference(user(), before), "");
  EXPECT_EQ(removeIt(), E_ACCESSDENIED) << "only the machine's is left";
}

// The interfaces are there once for both widths on some systems, and the system's own function
// removes them with either width.
TEST_F(Registration, LeavesToTheOtherWidthWhatItNeeds) {
  constexpr bool is64Bit = sizeof(void*) == 8;
  const std::wstring places = L"TypeLib\\{99678389-1525-4D77-A0B4-9A760B37785F}\\1.0\\0\\";
  const std::wstring other = places + (is64Bit ? L"win32" : L"win64");
  const Dump before = machine();
  ASSERT_EQ(registerIt(), S_OK);
  Dump expected = machine();
  RegCloseKey(classesOf(machine_, other));
  EXPECT_EQ(removeIt(), S_OK);
  // The classes are each width's own; what is common stays.
  const std::wstring own = classPath(places) + (is64Bit ? L"win64" : L"win32");
  std::erase_if(expected, [&](const auto& entry) {
    return entry.first.starts_with(classPath(L"CLSID\\{")) ||
           entry.first.starts_with(classPath(L"Keyscout.")) || entry.first.starts_with(own);
  });
  expected[classPath(other) + L'\\'];
  EXPECT_TRUE(expected.contains(
      classPath(L"Interface\\{BBC6D31D-FDB6-4F5E-AE57-E7EDE3D45088}\\ProxyStubClsid32\\")));
  EXPECT_EQ(difference(machine(), expected), "");

  RegDeleteTreeW(machine_, classPath(other).c_str());
  ASSERT_EQ(registerIt(), S_OK);
  EXPECT_EQ(removeIt(), S_OK);
  EXPECT_EQ(difference(machine(), before), "") << "the last one takes everything along";
}

TEST_F(Registration, FollowsTheLibraryToAnotherFolder) {
  ASSERT_EQ(registerIt(), S_OK);
  const Dump before = machine();
  // As long as the system loads libraries from, and in letters of several code pages.
  const test::TemporaryFolder parent;
  auto folder = parent.path() / L"Größe Ωλ 数据 100%";
  while (folder.native().size() < 200) folder /= L"ein Ordner";
  std::filesystem::create_directories(folder);
  const auto moved = folder / L"keyscout.dll";
  std::filesystem::copy_file(path_, moved, std::filesystem::copy_options::overwrite_existing);
  FreeLibrary(library_);
  library_ = LoadLibraryW(moved.c_str());
  EXPECT_EQ(registerIt(), S_OK);
  Dump expected = before;
  int paths = 0;
  for (auto& [key, value] : expected) {
    const auto swap = [&](const std::wstring& from, const std::wstring& to) {
      if (!value.starts_with(from)) return;
      value = to + value.substr(from.size());
      ++paths;
    };
    const bool isFolder = key.find(L"HELPDIR") != key.npos;
    if (isFolder)
      swap(std::filesystem::path{path_}.parent_path().wstring(), folder.wstring());
    else
      swap(path_, moved.wstring());
  }
  EXPECT_GE(paths, 6);
  EXPECT_EQ(difference(machine(), expected), "");
  EXPECT_EQ(removeIt(), S_OK);
  FreeLibrary(std::exchange(library_, nullptr));
}

}  // namespace
}  // namespace keyscout
