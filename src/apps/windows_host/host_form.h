#pragma once

#include <windows.h>

#include <array>
#include <string>

#include "apps/windows_host/control_site.h"
#include "keyscout_h.h"
#include "platform/win32/gdi.h"

namespace keyscout {

/// The sample host's form: two lookup controls, the brand that they look up, the brands that the
/// user may see, the lock, and a log of the events.
class HostForm {
 public:
  /// `directory` holds the catalog data. A form for languages that are written from right to left
  /// has everything the other way round.
  HostForm(std::wstring directory, bool rightToLeft);
  ~HostForm();
  HostForm(const HostForm&) = delete;
  HostForm& operator=(const HostForm&) = delete;

  HWND window() const { return window_; }
  /// Shows the form and works until the user closes it.
  void run();

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void onCommand(WORD id, WORD code);
  void onEvent(int control, DISPID event, DISPPARAMS& arguments);

  HWND add(const wchar_t* className, const wchar_t* text, DWORD style, RECT at, int id = 0);
  void addControls();
  void startUp();
  void authorizeBrands();
  void log(const std::wstring& line);
  /// Logs how a call went wrong, with what the library says about it.
  void logFailure(const wchar_t* call, HRESULT result);
  std::wstring chosenBrand() const;
  int scaled(int pixels) const;

  std::wstring directory_;
  bool rightToLeft_;
  HWND window_ = nullptr;
  HWND brand_ = nullptr;
  HWND authorized_ = nullptr;
  HWND log_ = nullptr;
  Font font_;
  ComPtr<_RWKeyscoutController> controller_;
  std::array<ComPtr<ControlSite>, 2> sites_;
  ComPtr<ITypeInfo> events_;  // of the controls
};

}  // namespace keyscout
