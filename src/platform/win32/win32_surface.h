#pragma once

#include <memory>
#include <type_traits>
#include <vector>

#include "platform/focus_tracker.h"
#include "platform/widgets.h"
#include "platform/win32/appearance.h"
#include "platform/win32/text_look.h"
#include "platform/win32/thread_form.h"
#include "platform/win32/widget_site.h"
#include "platform/win32/win32_list.h"
#include "platform/win32/win32_text_box.h"

namespace keyscout {

struct HookDeleter {
  void operator()(HHOOK hook) const { UnhookWindowsHookEx(hook); }
};
using Hook = std::unique_ptr<std::remove_pointer_t<HHOOK>, HookDeleter>;

/// What a surface needs of the object that it is a part of.
class SurfaceOwner {
 public:
  /// Between these two a message or a call is being worked on; they come once for all that are
  /// nested. Whatever happens meanwhile, the surface must stay; the end may destroy it.
  virtual void workBegins() noexcept = 0;
  virtual void workEnds() noexcept = 0;

  /// The user closed the drop-down without choosing anything.
  virtual void listClosedByUser() noexcept = 0;
  /// The drop-down opened or closed, and with it the keys change that the surface wants.
  virtual void wantedKeysChanged() noexcept = 0;
  /// The surface's window was destroyed, with the one that it stood on; it is out of sight now.
  virtual void windowDestroyed() noexcept = 0;
  /// The focus came to one of the surface's windows, or left them all.
  virtual void focusCame() noexcept = 0;
  virtual void focusLeft() noexcept = 0;

 protected:
  ~SurfaceOwner() = default;
};

/// The place of one control: a child window with the real widgets on it. It is made out of sight
/// and waits there until it is placed on a window of the host.
///
/// Windows whose procedures may be running are never destroyed: until the outermost message or call
/// has returned they are only put out of sight. So a host may take the control apart from inside
/// any event. Where the host destroys the window that the surface stands on, the surface gets a new
/// one out of sight, with the widgets as they were.
class Win32Surface final : public ControlSurface, private WidgetSite, private FocusObserver {
 public:
  /// `owner` must outlive the surface.
  explicit Win32Surface(SurfaceOwner& owner);
  ~Win32Surface() override;
  Win32Surface(const Win32Surface&) = delete;
  Win32Surface& operator=(const Win32Surface&) = delete;

  /// Null while a destroyed window has not been replaced.
  HWND window() const { return window_; }
  /// Shows the surface on `parent`, whose pixels `at` is in. False where that cannot be.
  bool placeOn(HWND parent, const RECT& at);
  void moveTo(const RECT& at);
  void resize(SIZE pixels);
  /// Shows only what lies in `clip`; both in the pixels of the window that the surface is on.
  void clipTo(const RECT& at, const RECT& clip);
  /// Back out of sight, and the focus with the window that the surface was on, if it had it.
  void park();
  /// The pixels that the surface takes up, on a window or not.
  SIZE size() const;
  /// Gives the focus to the text box, or to the surface while the text box is disabled.
  void takeFocus();
  bool hasFocus() const;

  /// null for the message font of Windows.
  void setBaseFont(const LOGFONTW* font);
  void setBackground(LONG oleColor);
  /// What screen readers call the control where no label stands before it.
  void setDisplayName(StringView name) { displayName_ = name; }
  /// On a right-to-left form text stands on the right and the scroll bar on the left. The numbers
  /// themselves are read from left to right everywhere: 265-Y10 must not become Y10-265.
  void setRightToLeft(bool rightToLeft);

  // ControlSurface
  void setObservers(SurfaceObserver* surface, TextBoxObserver* textBox) override;
  Win32TextBox& textBox() override { return textBox_; }
  DropDownList& addDropDownList(StringView name, DropDownListObserver& observer) override;
  void removeChild(StringView name) override;
  float width() const override { return static_cast<float>(size().cx); }
  void setEnabled(Boolean enabled) override;
  /// Windows chooses the shape by what the pointer is over; the control asks for nothing else.
  void setMousePointer(std::int16_t) override {}
  void beginHostCall() override;
  void endHostCall() noexcept override;

  Win32List* list() const { return list_.get(); }
  const TextLook& look() const override { return look_; }
  /// True for keys that a host's dialog handling must leave to the control.
  bool wantsKey(WPARAM keyCode) const;

  /// The library's own window class goes with the library.
  static void unregisterClass() noexcept;

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  static bool isSurface(HWND window);
  void createWindow();
  void destroyWindows() noexcept;
  LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void onCommand(HWND from, WORD code);
  void onDestroy();
  void restore() noexcept;
  void eraseBackground(HDC target);
  static LRESULT CALLBACK afterMessage(int code, WPARAM wParam, LPARAM lParam);
  static BOOL CALLBACK tellIfSurface(HWND child, LPARAM);
  void onFormMoved();
  void updateLook();

  // WidgetSite
  void enter() noexcept override;
  void leave() noexcept override;
  FocusTracker& focusTracker() override { return form_->focusTracker(); }
  void focusCame(FocusPlace place) override;
  void focusGoes(HWND next) override;
  void listOpens() override;
  void listCloses() override;
  void listClosedByUser() override;
  bool scrollList(WPARAM wParam, LPARAM lParam) override;
  void keepListOpen(const std::function<void()>& move) override;
  void characterCameToList(WPARAM character, LPARAM keyData) override;
  std::wstring accessibleName() const override;
  HWND listWindow() const override { return list_ ? list_->window() : nullptr; }
  LRESULT dialogCode(LPARAM lParam) const override;
  void retireWindow(HWND window) override;

  // FocusObserver
  void textBoxGotFocus() noexcept override { textBox_.gotFocus(); }
  void textBoxLostFocus() noexcept override { textBox_.lostFocus(); }
  void surfaceLostFocus() noexcept override;
  void focusLeft() noexcept override;

  SurfaceOwner& owner_;
  std::shared_ptr<ThreadForm> form_;
  HWND window_ = nullptr;
  SurfaceObserver* observer_ = nullptr;
  TextLook look_;
  LONG background_ = systemColor(COLOR_BTNFACE);
  String displayName_;
  int depth_ = 0;
  Hook formHook_;  // while the list is open

  Win32TextBox textBox_;
  String listName_;
  std::unique_ptr<Win32List> list_;
  std::vector<std::unique_ptr<Win32List>> retiredLists_;
  std::vector<HWND> retiredWindows_;
};

}  // namespace keyscout
