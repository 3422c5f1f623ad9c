#include "apps/windows_host/control_site.h"

#include "platform/win32/appearance.h"
#include "server/com/failures.h"
#include "server/control/extent.h"

namespace keyscout {

void ControlSite::create(REFCLSID id, const RECT& at) {
  at_ = at;
  require(createInstance(id, control_));
  const auto object = controlAs<IOleObject>();
  if (!object) throw ComFailure{E_NOINTERFACE};
  require(object->SetClientSite(this));
  if (const auto persistence = controlAs<IPersistStreamInit>()) persistence->InitNew();
  SIZEL extent = toHimetric({at.right - at.left, at.bottom - at.top}, dpiOf(parent_));
  object->SetExtent(DVASPECT_CONTENT, &extent);
  require(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, this, 0, parent_, &at));
}

void ControlSite::connect(REFIID events, IUnknown* sink) {
  const auto points = controlAs<IConnectionPointContainer>();
  if (!points) throw ComFailure{E_NOINTERFACE};
  require(points->FindConnectionPoint(events, eventPoint_.put()));
  require(eventPoint_->Advise(sink, &eventCookie_));
}

void ControlSite::moveTo(const RECT& at) {
  at_ = at;
  if (const auto object = controlAs<IOleInPlaceObject>()) object->SetObjectRects(&at, &at);
}

void ControlSite::close() {
  const ComPtr<ControlSite> alive{this};
  const auto control = std::exchange(control_, nullptr);
  const auto events = std::exchange(eventPoint_, nullptr);
  if (events) events->Unadvise(eventCookie_);
  if (const auto object = ComPtr<IOleObject>::from(control.get())) {
    object->Close(OLECLOSE_NOSAVE);
    object->SetClientSite(nullptr);
  }
  active_ = nullptr;
}

bool ControlSite::translate(MSG& message) {
  const auto active = active_;
  return active && active->TranslateAccelerator(&message) == S_OK;
}

bool ControlSite::hasFocus() const {
  HWND window = nullptr;
  const auto object = controlAs<IOleInPlaceObject>();
  if (!object || FAILED(object->GetWindow(&window))) return false;
  return IsChild(window, GetFocus()) != FALSE;
}

HRESULT ControlSite::GetContainer(IOleContainer** result) {
  if (!result) return E_POINTER;
  *result = nullptr;
  return E_NOINTERFACE;
}

HRESULT ControlSite::GetWindow(HWND* result) {
  if (!result) return E_POINTER;
  *result = parent_;
  return S_OK;
}

HRESULT ControlSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                      LPRECT position, LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
  if (!frame || !document || !position || !clip || !info) return E_POINTER;
  if (const HRESULT answer = noted("GetWindowContext"); FAILED(answer)) return answer;
  *frame = ComPtr<IOleInPlaceFrame>{this}.detach();
  *document = nullptr;
  *position = at_;
  GetClientRect(parent_, clip);
  info->fMDIApp = FALSE;
  info->hwndFrame = GetAncestor(parent_, GA_ROOT);
  info->haccel = nullptr;
  info->cAccelEntries = 0;
  return S_OK;
}

HRESULT ControlSite::TranslateAccelerator(MSG*, DWORD) {
  noted("TranslateAccelerator");
  return S_FALSE;
}

HRESULT ControlSite::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) {
  noted(object ? "SetActiveObject" : "SetActiveObject(null)");
  active_ = ComPtr<IOleInPlaceActiveObject>{object};
  return S_OK;
}

HRESULT ControlSite::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT ControlSite::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                            UINT*) {
  const auto found = ambients.find(id);
  if (found == ambients.end()) return DISP_E_MEMBERNOTFOUND;
  if (!result) return E_POINTER;
  VariantInit(result);
  return VariantCopy(result, &found->second);
}

}  // namespace keyscout
