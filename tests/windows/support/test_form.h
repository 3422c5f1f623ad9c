#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "apps/windows_host/control_site.h"
#include "keyscout_h.h"
#include "support/catalog_folder.h"

namespace keyscout {

template <class Interface>
ComPtr<Interface> create(REFCLSID id) {
  ComPtr<Interface> created;
  createInstance(id, created);
  return created;
}

/// The text that a property or a window has, for comparing.
std::string narrow(std::wstring_view text);
std::string takeText(BSTR text);

/// Where a window is on the screen.
RECT placeOf(HWND window);

using Log = std::vector<std::string>;

/// A form with lookup controls and one edit field of its own, on a catalog that is ready. Notes
/// what the controls raise and what they ask of their sites.
class TestForm {
 public:
  explicit TestForm(int controls = 1);
  ~TestForm();
  TestForm(const TestForm&) = delete;
  TestForm& operator=(const TestForm&) = delete;

  HWND window() const { return window_; }
  HWND otherField() const { return otherField_; }
  ControlSite& site(int control = 0) { return *sites_[static_cast<std::size_t>(control)]; }
  ComPtr<_keyscoutControl> control(int which = 0) {
    return site(which).controlAs<_keyscoutControl>();
  }
  _RWKeyscoutController& controller() { return *controller_; }
  CatalogFolder& folder() { return folder_; }

  /// Events since the last call, each as its name and its arguments, as "KeyDown 40 0"; mouse
  /// moves are left out.
  Log takeEvents() { return std::exchange(events_, {}); }
  Log takeCalls() { return std::exchange(calls_, {}); }
  /// Runs inside every call on a site, after it was noted.
  std::function<void(const std::string& name)> onCall;
  /// What the sites answer to calls of these names; S_OK to all others.
  std::map<std::string, HRESULT> answers;
  /// Runs inside every event, after it was noted.
  std::function<void(const std::string& name, DISPPARAMS& arguments)> onEvent;

  // A person at keyboard and mouse; each waits until the form has worked on the input.

  void key(WORD key, WORD modifier = 0);
  void type(const char* text);
  void click(POINT onScreen, DWORD down = MOUSEEVENTF_LEFTDOWN, DWORD up = MOUSEEVENTF_LEFTUP);
  void pump();

  HWND surface(int control = 0);
  HWND edit(int control = 0);
  HWND combo(int control = 0);
  /// The window that drops down; null without a list.
  HWND dropDown(int control = 0);
  std::string text(int control = 0);
  bool isOpen(int control = 0);
  std::vector<std::string> entries(int control = 0);
  POINT entryOnScreen(int entry, int control = 0);
  /// Gives the focus to a control's text box.
  void enter(int control = 0);

 private:
  void note(DISPID event, DISPPARAMS& arguments);

  CatalogFolder folder_;
  HWND window_ = nullptr;
  HWND otherField_ = nullptr;
  std::vector<ComPtr<ControlSite>> sites_;
  ComPtr<_RWKeyscoutController> controller_;
  Log events_;
  Log calls_;
};

}  // namespace keyscout
