#pragma once

#include <windows.h>

#include <array>
#include <string>
#include <vector>

#include "apps/windows_host/control_site.h"
#include "keyscout_h.h"
#include "platform/win32/gdi.h"

namespace keyscout {

/// The sample host's form: two lookup controls with the brands that were accepted in them, the
/// brand that they look up, the brands that the user may see, the lock, and a log of the events.
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
  /// A window of the form and its place at 96 dots per inch.
  struct Part {
    HWND window;
    RECT place;
  };
  /// One lookup control.
  struct Field {
    RECT place;
    const wchar_t* name;
    ComPtr<ControlSite> site;
    HWND brand = nullptr;
    /// What was accepted last, whose brand is shown as long as it stands in the field.
    std::wstring accepted;
    bool isAccepting = false;
  };

  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void onCommand(WORD id, WORD code);
  void onEvent(Field& field, DISPID event, DISPPARAMS& arguments);

  HWND add(const wchar_t* kind, const wchar_t* text, DWORD style, RECT place, int id = 0);
  void addField(Field& field, const wchar_t* label);
  void addParts();
  void setFonts();
  /// Puts all in place, at the resolution and in the size that the form has now.
  void arrange();
  void rememberFocus();
  void giveFocusBack();

  void startUp();
  void authorizeBrands();
  void showAcceptedBrand(Field& field);
  void showLock();
  void log(const std::wstring& line);
  /// Logs how a call went wrong, with what the library says about it.
  void logFailure(const wchar_t* call, HRESULT result);
  std::wstring chosenBrand() const;
  RECT scaled(RECT place) const;

  std::wstring directory_;
  bool rightToLeft_;
  int dpi_ = 96;
  HWND window_ = nullptr;
  HWND brand_ = nullptr;
  HWND authorized_ = nullptr;
  HWND lockState_ = nullptr;
  HWND lock_ = nullptr;
  HWND unlock_ = nullptr;
  HWND log_ = nullptr;
  int logWidth_ = 0;
  Font font_;
  Font boldFont_;
  std::vector<Part> parts_;
  ComPtr<_RWKeyscoutController> controller_;
  ComPtr<ITypeInfo> events_;  // of the controls
  std::array<Field, 2> fields_;
  // Where the focus was when the user went to another window; null for a field.
  HWND lastFocus_ = nullptr;
  std::size_t lastField_ = 0;
};

}  // namespace keyscout
