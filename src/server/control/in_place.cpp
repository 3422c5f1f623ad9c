// The control on the container's window: activation, position, keys.

#include <utility>

#include "base/failure_handling.h"
#include "platform/win32/input.h"
#include "server/control/control_object.h"

namespace keyscout {

void ControlObject::activateInPlace() {
  if (inPlaceSite_) return;
  const auto site = ComPtr<IOleInPlaceSite>::from(site_.get());
  if (!site) throw ComFailure{OLE_E_NOTRUNNING};
  if (site->CanInPlaceActivate() != S_OK) throw ComFailure{E_FAIL};
  require(site->OnInPlaceActivate());
  inPlaceSite_ = site;

  HWND parent = nullptr;
  RECT position{};
  RECT clip{};
  OLEINPLACEFRAMEINFO frameInfo{};
  frameInfo.cb = sizeof frameInfo;
  const bool placed = SUCCEEDED(site->GetWindow(&parent)) &&
                      SUCCEEDED(site->GetWindowContext(frame_.put(), document_.put(), &position,
                                                       &clip, &frameInfo)) &&
                      surface_.placeOn(parent, position);
  if (!placed) {
    deactivateInPlace();
    throw ComFailure{E_FAIL};
  }
  surface_.clipTo(position, clip);
  surface_.setRightToLeft(isRightToLeft());
  surface_.setEnabled(takesInput());
  if (site_) site_->ShowObject();
}

/// On a form that is being designed the mouse is the designer's.
bool ControlObject::takesInput() const {
  return ambients_.userMode && !ambients_.uiDead && control_.Enabled();
}

/// As the container says, or as its window is.
bool ControlObject::isRightToLeft() const {
  if (ambients_.rightToLeft) return true;
  if (!inPlaceSite_) return false;
  const LONG_PTR style = GetWindowLongPtrW(GetParent(surface_.window()), GWL_EXSTYLE);
  return (style & (WS_EX_RTLREADING | WS_EX_LAYOUTRTL)) != 0;
}

void ControlObject::activateUi() {
  if (uiActive_ || !inPlaceSite_) return;
  const auto site = inPlaceSite_;
  uiActive_ = true;
  if (const HRESULT answer = site->OnUIActivate(); FAILED(answer)) {
    uiActive_ = false;
    throw ComFailure{answer};
  }
  // Telling the container may have ended it all.
  const auto frame = frame_;
  const auto document = document_;
  if (frame && uiActive_) frame->SetActiveObject(this, nullptr);
  if (document && uiActive_) document->SetActiveObject(this, nullptr);
  if (frame && uiActive_) frame->SetBorderSpace(nullptr);
}

void ControlObject::deactivateUi() {
  if (!uiActive_) return;
  uiActive_ = false;
  const auto site = inPlaceSite_;
  const auto frame = frame_;
  const auto document = document_;
  if (document) document->SetActiveObject(nullptr, nullptr);
  if (frame) frame->SetActiveObject(nullptr, nullptr);
  if (site) site->OnUIDeactivate(FALSE);
}

void ControlObject::deactivateInPlace() {
  if (!inPlaceSite_) return;
  deactivateUi();
  control_.hideList();
  const auto site = leaveSite();
  surface_.park();
  tellFocus(false);
  if (site) site->OnInPlaceDeactivate();
}

/// The container may have activated the control in the middle of its deactivation: that is over.
ComPtr<IOleInPlaceSite> ControlObject::leaveSite() {
  uiActive_ = false;
  frame_ = nullptr;
  document_ = nullptr;
  return std::exchange(inPlaceSite_, nullptr);
}

void ControlObject::focusCame() noexcept {
  ignoringFailure([&] {
    if (!inPlaceSite_) return;
    activateUi();
    tellFocus(true);
  });
}

void ControlObject::focusLeft() noexcept {
  ignoringFailure([&] { tellFocus(false); });
}

void ControlObject::tellFocus(bool got) {
  if (got == std::exchange(focusTold_, got)) return;
  if (const auto site = ComPtr<IOleControlSite>::from(site_.get())) site->OnFocus(got);
}

/// The container took its window away without a word. It is not told what it has done, and may
/// activate the control again on another window.
void ControlObject::windowDestroyed() noexcept {
  leaveSite();
  focusTold_ = false;
}

void ControlObject::wantedKeysChanged() noexcept {
  if (const auto site = ComPtr<IOleControlSite>::from(site_.get())) site->OnControlInfoChanged();
}

HRESULT ControlObject::GetWindow(HWND* result) {
  return call([&] {
    target(result) = inPlaceSite_ ? surface_.window() : nullptr;
    if (!*result) throw ComFailure{E_FAIL};
  });
}

HRESULT ControlObject::InPlaceDeactivate() {
  return call([&] { deactivateInPlace(); });
}

HRESULT ControlObject::UIDeactivate() {
  return call([&] { deactivateUi(); });
}

HRESULT ControlObject::SetObjectRects(LPCRECT position, LPCRECT clip) {
  return call([&] {
    const RECT at = target(position);
    if (!inPlaceSite_) throw ComFailure{E_UNEXPECTED};
    surface_.moveTo(at);
    surface_.clipTo(at, clip ? *clip : at);
  });
}

HRESULT ControlObject::TranslateAccelerator(LPMSG message) {
  if (!message) return E_POINTER;
  bool handled = false;
  const HRESULT result = call([&] {
    const bool isKey = message->message >= WM_KEYFIRST && message->message <= WM_KEYLAST;
    if (!isKey || !uiActive_) return;
    if (message->message == WM_KEYDOWN && surface_.wantsKey(message->wParam)) {
      TranslateMessage(message);
      DispatchMessageW(message);
      handled = true;
      return;
    }
    const auto site = ComPtr<IOleControlSite>::from(site_.get());
    if (!site) return;
    handled = site->TranslateAccelerator(message, static_cast<DWORD>(modifierMask())) == S_OK;
  });
  if (FAILED(result)) return result;
  return handled ? S_OK : S_FALSE;
}

}  // namespace keyscout
