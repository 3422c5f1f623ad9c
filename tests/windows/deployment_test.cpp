// keyscout_deployment_tests FOLDER: the library and the sample host from FOLDER as the zip has it,
// on a machine where nothing is registered. The host runs as a program of its own, and is worked
// with by keys.

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/win32/parameters.h"
#include "support/input.h"
#include "support/other_thread.h"
#include "support/test_form.h"

namespace keyscout {
namespace {

std::wstring folder;

constexpr const wchar_t* classNames[] = {L"Keyscout.keyscoutControl",
                                         L"Keyscout.RWKeyscoutController", L"Keyscout.BrandList",
                                         L"Keyscout.BrandItem", L"Keyscout.HostServices"};

HRESULT createByName(const wchar_t* name) {
  CLSID id{};
  const HRESULT found = CLSIDFromProgID(name, &id);
  if (FAILED(found)) return found;
  ComPtr<IDispatch> made;
  return createInstance(id, made);
}

/// While it lives, the calling thread finds what the manifest names.
class ManifestInForce {
 public:
  ManifestInForce() {
    const std::wstring manifest = folder + L"\\Keyscout.Lookup.manifest";
    ACTCTXW description{};
    description.cbSize = sizeof description;
    description.dwFlags = ACTCTX_FLAG_ASSEMBLY_DIRECTORY_VALID;
    description.lpSource = manifest.c_str();
    description.lpAssemblyDirectory = folder.c_str();
    context_ = CreateActCtxW(&description);
    EXPECT_TRUE(ActivateActCtx(context_, &cookie_));
  }
  ~ManifestInForce() {
    DeactivateActCtx(0, cookie_);
    ReleaseActCtx(context_);
  }
  ManifestInForce(const ManifestInForce&) = delete;
  ManifestInForce& operator=(const ManifestInForce&) = delete;

 private:
  HANDLE context_ = INVALID_HANDLE_VALUE;
  ULONG_PTR cookie_ = 0;
};

TEST(Deployment, TheManifestServesEveryClass) {
  for (const wchar_t* name : classNames)
    ASSERT_NE(createByName(name), S_OK) << narrow(name) << " is registered";
  const ManifestInForce manifest;
  for (const wchar_t* name : classNames) {
    EXPECT_EQ(createByName(name), S_OK) << narrow(name);
    EXPECT_EQ(createByName((name + std::wstring{L".1"}).c_str()), S_OK) << narrow(name);
  }
}

TEST(Deployment, TheManifestLeadsCallsFromThreadToThread) {
  const ManifestInForce manifest;
  ComPtr<_RWKeyscoutController> controller;
  ASSERT_EQ(createInstance(CLSID_RWKeyscoutController, controller), S_OK);
  const OtherThreadsAnswer answer = askFromOtherThread(*controller);
  EXPECT_EQ(answer.unmarshaled, S_OK);
  EXPECT_EQ(answer.directory, "C:\\elsewhere\\");
}

template <class Condition>
bool waitFor(Condition&& condition) {
  for (const DWORD until = GetTickCount() + 30000; GetTickCount() < until; Sleep(20))
    if (condition()) return true;
  return false;
}

/// The sample host as a program of its own.
class SampleHost : public testing::Test {
 protected:
  void SetUp() override {
    STARTUPINFOW start{};
    start.cb = sizeof start;
    std::wstring command = L"\"" + folder + L"\\keyscout_host.exe\"";
    ASSERT_TRUE(CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                               nullptr, &start, &process_));
    ASSERT_TRUE(waitFor([&] {
      form_ = FindWindowW(L"Keyscout.SampleHost", nullptr);
      return form_ && IsWindowVisible(form_);
    }));
    for (HWND child = nullptr; (child = FindWindowExW(form_, child, L"Keyscout.Surface", nullptr));)
      surfaces_.push_back(child);
    ASSERT_EQ(surfaces_.size(), 2u);
  }
  void TearDown() override {
    PostMessageW(form_, WM_CLOSE, 0, 0);
    EXPECT_EQ(WaitForSingleObject(process_.hProcess, 30000), WAIT_OBJECT_0);
    DWORD status = 1;
    GetExitCodeProcess(process_.hProcess, &status);
    EXPECT_EQ(status, 0u);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
  }

  HWND focus() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(process_.dwThreadId, &info) ? info.hwndFocus : nullptr;
  }
  bool focusIsIn(HWND surface) const { return IsChild(surface, focus()) != FALSE; }
  bool shows(const char* text) const {
    for (HWND child = nullptr; (child = FindWindowExW(form_, child, L"Static", nullptr));)
      if (textOf(child) == text) return true;
    return false;
  }
  static std::string textOf(HWND window) {
    wchar_t text[200] = L"";
    SendMessageW(window, WM_GETTEXT, 200, asParameter(&text));
    return narrow(text);
  }
  std::string textIn(HWND surface) const {
    return textOf(FindWindowExW(surface, nullptr, L"Edit", nullptr));
  }

  PROCESS_INFORMATION process_{};
  HWND form_ = nullptr;
  std::vector<HWND> surfaces_;
};

TEST_F(SampleHost, KeysAloneLeadThroughTheForm) {
  ASSERT_TRUE(waitFor([&] { return GetForegroundWindow() == form_ && focusIsIn(surfaces_[0]); }));
  EXPECT_TRUE(shows("Lookups are open"));
  pressKey('B');
  pressKey('T');
  EXPECT_TRUE(waitFor([&] { return textIn(surfaces_[0]) == "bt"; }));
  pressKey(VK_DOWN);
  pressKey(VK_RETURN);
  EXPECT_TRUE(waitFor([&] { return textIn(surfaces_[0]).starts_with("BT"); }));
  EXPECT_TRUE(waitFor([&] { return shows("BÄRENTAL"); })) << "the brand that was accepted";
  pressKey('X');
  EXPECT_TRUE(waitFor([&] { return !shows("BÄRENTAL"); })) << "another number";

  pressKey('R', VK_MENU);
  EXPECT_TRUE(waitFor([&] { return focusIsIn(surfaces_[1]); }));
  pressKey('C', VK_MENU);
  EXPECT_TRUE(waitFor([&] { return focusIsIn(surfaces_[0]); }));
  pressKey('L', VK_MENU);
  EXPECT_TRUE(waitFor([&] { return shows("Lookups are locked"); }));
  pressKey('T', VK_MENU);
  EXPECT_TRUE(waitFor([&] { return shows("Lookups are open"); }));
}

TEST_F(SampleHost, TheFocusComesBackFromAnotherWindow) {
  ASSERT_TRUE(waitFor([&] { return GetForegroundWindow() == form_ && focusIsIn(surfaces_[0]); }));
  pressKey('R', VK_MENU);
  ASSERT_TRUE(waitFor([&] { return focusIsIn(surfaces_[1]); }));
  const HWND before = focus();
  const HWND other = CreateWindowExW(0, L"EDIT", L"", WS_POPUP | WS_VISIBLE, 700, 700, 200, 30,
                                     nullptr, nullptr, nullptr, nullptr);
  SetForegroundWindow(other);
  ASSERT_TRUE(waitFor([&] { return focus() == nullptr; }));
  SetForegroundWindow(form_);
  EXPECT_TRUE(waitFor([&] { return focus() == before; }));

  // With the focus in a list, which closes: its field has the focus then.
  pressKey('B');
  pressKey('T');
  ASSERT_TRUE(waitFor([&] { return textIn(surfaces_[1]) == "bt"; }));
  pressKey(VK_DOWN);
  ASSERT_TRUE(waitFor([&] { return focusIsIn(surfaces_[1]) && focus() != before; }));
  SetForegroundWindow(other);
  ASSERT_TRUE(waitFor([&] { return focus() == nullptr; }));
  SetForegroundWindow(form_);
  EXPECT_TRUE(waitFor([&] { return focus() == before; }));
  DestroyWindow(other);
}

}  // namespace
}  // namespace keyscout

int wmain(int argc, wchar_t** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc != 2) return 2;
  keyscout::folder = argv[1];
  OleInitialize(nullptr);
  const int status = RUN_ALL_TESTS();
  OleUninitialize();
  return status;
}
