// The sample host's form where a program of its own cannot be reached: on a screen of another
// resolution.

#include <gtest/gtest.h>

#include "apps/windows_host/host_form.h"
#include "platform/win32/parameters.h"
#include "support/test_form.h"

namespace keyscout {
namespace {

TEST(HostForm, AnswersAChangeOfResolution) {
  const CatalogFolder folder;
  HostForm form{folder.path(), false};
  ShowWindow(form.window(), SW_SHOW);
  const auto sizeOf = [](HWND window) {
    const RECT at = placeOf(window);
    return std::pair{at.right - at.left, at.bottom - at.top};
  };
  const HWND surface = FindWindowExW(form.window(), nullptr, L"Keyscout.Surface", nullptr);
  const HWND log = [&] {
    HWND last = nullptr;
    for (HWND list = nullptr; (list = FindWindowExW(form.window(), list, L"ListBox", nullptr));)
      last = list;
    return last;
  }();
  const HWND label = FindWindowExW(form.window(), nullptr, L"Static", nullptr);
  const auto fontHeight = [&] {
    LOGFONTW font{};
    GetObjectW(pointerIn<HFONT>(SendMessageW(label, WM_GETFONT, 0, 0)), sizeof font, &font);
    return std::abs(font.lfHeight);
  };
  const auto before = sizeOf(surface);
  const auto logBefore = sizeOf(log);
  const LONG heightBefore = fontHeight();

  RECT suggested{20, 20, 20 + 900, 20 + 660};
  SendMessageW(form.window(), WM_DPICHANGED, MAKEWPARAM(144, 144), asParameter(&suggested));
  EXPECT_EQ(placeOf(form.window()).left, 20);
  EXPECT_EQ(sizeOf(form.window()), (std::pair{900L, 660L}));
  EXPECT_EQ(sizeOf(surface), (std::pair{before.first * 3 / 2, before.second * 3 / 2}));
  EXPECT_GT(sizeOf(log).first, logBefore.first * 5 / 4);
  EXPECT_GT(fontHeight(), heightBefore * 5 / 4);

  // The log takes what a larger form has to offer, the fields stay as they are.
  const auto logThen = sizeOf(log);
  SetWindowPos(form.window(), nullptr, 0, 0, 1000, 760, SWP_NOMOVE | SWP_NOZORDER);
  EXPECT_EQ(sizeOf(log), (std::pair{logThen.first + 100, logThen.second + 100}));
  EXPECT_EQ(sizeOf(surface), (std::pair{before.first * 3 / 2, before.second * 3 / 2}));
}

}  // namespace
}  // namespace keyscout
