// The container that the system itself brings.

#include <gtest/gtest.h>

#include <bit>

#include "support/test_form.h"

namespace keyscout {
namespace {

TEST(AtlContainer, HostsTheControl) {
  const HMODULE atl = LoadLibraryW(L"atl.dll");
  ASSERT_TRUE(atl);
  const auto initialize = std::bit_cast<BOOL(WINAPI*)()>(GetProcAddress(atl, "AtlAxWinInit"));
  const auto controlOf =
      std::bit_cast<HRESULT(WINAPI*)(HWND, IUnknown**)>(GetProcAddress(atl, "AtlAxGetControl"));
  const auto advise = std::bit_cast<HRESULT(WINAPI*)(IUnknown*, IUnknown*, REFIID, DWORD*)>(
      GetProcAddress(atl, "AtlAdvise"));
  ASSERT_TRUE(initialize && controlOf && advise);
  ASSERT_TRUE(initialize());

  TestForm form;
  const HWND window =
      CreateWindowExW(0, L"AtlAxWin", L"Keyscout.keyscoutControl", WS_CHILD | WS_VISIBLE, 20, 100,
                      180, 24, form.window(), nullptr, nullptr, nullptr);
  ASSERT_TRUE(window);
  ComPtr<IUnknown> object;
  ASSERT_EQ(controlOf(window, object.put()), S_OK);
  const auto control = ComPtr<_keyscoutControl>::from(object.get());
  ASSERT_TRUE(control);
  int events = 0;
  const auto sink = makeObject<EventSink>([&](DISPID, DISPPARAMS&) { ++events; });
  DWORD cookie = 0;
  ASSERT_EQ(advise(object.get(), sink.get(), DIID___keyscoutControl, &cookie), S_OK);

  HWND surface = nullptr;
  ASSERT_EQ(ComPtr<IOleInPlaceObject>::from(object.get())->GetWindow(&surface), S_OK);
  EXPECT_TRUE(IsChild(window, surface));
  SetFocus(FindWindowExW(surface, nullptr, L"EDIT", nullptr));
  form.type("ab");
  BSTR text = nullptr;
  control->get_text(&text);
  EXPECT_EQ(takeText(text), "ab");
  VARIANT_BOOL showing = VARIANT_FALSE;
  control->get_isListShowing(&showing);
  EXPECT_EQ(showing, VARIANT_TRUE);
  EXPECT_EQ(events, 8);
  DestroyWindow(window);
}

}  // namespace
}  // namespace keyscout
