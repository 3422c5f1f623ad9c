#include "platform/win32/win32_form_surface.h"

#include "base/error.h"
#include "platform/win32/input.h"
#include "platform/win32/parameters.h"
#include "platform/win32/wide.h"

namespace keyscout {
namespace {

constexpr int firstWidth = 100;

/// The messages of one mouse button.
struct Button {
  UINT down, up, doubleClick;
  WPARAM held;
};

Button buttonOf(std::int16_t number) {
  switch (number) {
    case 2: return {WM_RBUTTONDOWN, WM_RBUTTONUP, WM_RBUTTONDBLCLK, MK_RBUTTON};
    case 4: return {WM_MBUTTONDOWN, WM_MBUTTONUP, WM_MBUTTONDBLCLK, MK_MBUTTON};
    default: return {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, MK_LBUTTON};
  }
}

LPARAM position(int x, int y) { return MAKELPARAM(x, y); }

/// While it lives, a menu that opens is closed again: nobody is there to choose from it.
class NoMenu {
 public:
  NoMenu() : timer_(SetTimer(nullptr, 0, USER_TIMER_MINIMUM, &endMenu)) {}
  ~NoMenu() { KillTimer(nullptr, timer_); }
  NoMenu(const NoMenu&) = delete;
  NoMenu& operator=(const NoMenu&) = delete;

 private:
  static void CALLBACK endMenu(HWND, UINT, UINT_PTR, DWORD) { EndMenu(); }

  UINT_PTR timer_;
};

}  // namespace

Win32FormSurface::Win32FormSurface(Win32Form& form, POINT corner) : form_(form) {
  const RECT place{corner.x, corner.y, corner.x + firstWidth, corner.y + surface_.size().cy};
  if (!surface_.placeOn(form_.window(), place))
    throw platformFailure(PlatformError::outOfMemory, u"Form");
  surface_.textBox().setWidth(firstWidth);
  form_.add(*this);
}

Win32FormSurface::~Win32FormSurface() { form_.remove(*this); }

void Win32FormSurface::takeFocus(FocusPlace place) {
  switch (place) {
    case FocusPlace::textBox: surface_.textBox().setFocus(); return;
    case FocusPlace::list:
      if (!surface_.list()) throw platformFailure(PlatformError::objectNotSet, u"Form");
      surface_.list()->setFocus();
      return;
    case FocusPlace::surface: {
      // A surface keeps the focus only while its text box is disabled.
      const HWND edit = surface_.textBox().window();
      const LONG_PTR style = GetWindowLongPtrW(edit, GWL_STYLE);
      SetWindowLongPtrW(edit, GWL_STYLE, style | WS_DISABLED);
      SetFocus(surface_.window());
      SetWindowLongPtrW(edit, GWL_STYLE, style);
      return;
    }
  }
}

void Win32FormSurface::paste(StringView text) {
  TextBox& box = surface_.textBox();
  if (!box.enabled() || box.readOnly()) return;
  const std::wstring wide = toWide(text);
  SendMessageW(surface_.textBox().window(), EM_REPLACESEL, TRUE, asParameter(wide.c_str()));
}

std::optional<PlayableSurface::ListView> Win32FormSurface::listView() const {
  const Win32List* const list = surface_.list();
  if (!list) return std::nullopt;
  ListView view;
  for (std::int16_t entry = 0; entry < list->entryCount(); ++entry)
    view.entries.push_back(list->entryText(entry));
  view.selected = static_cast<std::int16_t>(SendMessageW(list->window(), CB_GETCURSEL, 0, 0));
  view.isDropped = list->isDropped();
  view.redraws = list->redraws();
  return view;
}

std::optional<FocusPlace> Win32FormSurface::focusPlace() const {
  const HWND focused = GetFocus();
  if (!focused || !surface_.hasFocus()) return std::nullopt;
  if (focused == surface_.window()) return FocusPlace::surface;
  const Win32List* const list = surface_.list();
  return list && IsChild(list->window(), focused) ? FocusPlace::list : FocusPlace::textBox;
}

void Win32FormSurface::resize(float newWidth) {
  surface_.resize({static_cast<LONG>(newWidth), surface_.size().cy});
}

void Win32FormSurface::click(std::int16_t entry) {
  const Win32List* const list = surface_.list();
  if (!list || !list->isDropped()) return;
  const HWND dropDown = list->dropDownWindow();
  const auto index = static_cast<WPARAM>(entry);
  const auto rowOf = [&] {
    RECT row{};
    SendMessageW(dropDown, LB_GETITEMRECT, index, asParameter(&row));
    return row;
  };
  RECT area{};
  GetClientRect(dropDown, &area);
  if (const RECT row = rowOf(); row.top < area.top || row.bottom > area.bottom)
    SendMessageW(dropDown, LB_SETTOPINDEX, index, 0);
  const RECT row = rowOf();
  const LPARAM at = position((row.left + row.right) / 2, (row.top + row.bottom) / 2);
  SendMessageW(dropDown, WM_LBUTTONDOWN, MK_LBUTTON, at);
  SendMessageW(dropDown, WM_LBUTTONUP, 0, at);
}

void Win32FormSurface::mouse(MouseReport report, std::int16_t button, std::int16_t shift, float x,
                             float y) {
  const HWND edit = surface_.textBox().window();
  const HeldModifiers held{shift};
  const Button messages = buttonOf(button);
  const LPARAM at = position(static_cast<int>(x), static_cast<int>(y));
  const NoMenu noMenu;
  switch (report) {
    case MouseReport::down: SendMessageW(edit, messages.down, messages.held, at); return;
    case MouseReport::move:
      SendMessageW(edit, WM_MOUSEMOVE, button == 0 ? 0 : messages.held, at);
      return;
    case MouseReport::up: SendMessageW(edit, messages.up, 0, at); return;
    case MouseReport::click:
      SendMessageW(edit, messages.down, messages.held, at);
      SendMessageW(edit, messages.up, 0, at);
      return;
    case MouseReport::doubleClick:
      SendMessageW(edit, messages.doubleClick, messages.held, at);
      return;
  }
}

}  // namespace keyscout
