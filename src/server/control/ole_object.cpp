// The control as an embedded object: its site, its size, and what the container asks of it.

#include <string_view>

#include "server/control/control_object.h"
#include "server/control/extent.h"

namespace keyscout {
namespace {

void requireContent(DWORD aspect) {
  if (aspect != DVASPECT_CONTENT) throw ComFailure{DV_E_DVASPECT};
}

}  // namespace

HRESULT ControlObject::SetClientSite(IOleClientSite* site) {
  return call([&] {
    const ComPtr<IOleClientSite> next{site};
    if (!next) deactivateInPlace();
    site_ = next;
    if (site_) applyAmbients();
  });
}

HRESULT ControlObject::GetClientSite(IOleClientSite** result) {
  return call([&] {
    target(result) = nullptr;
    *result = ComPtr<IOleClientSite>{site_}.detach();
  });
}

HRESULT ControlObject::Close(DWORD) {
  return call([&] {
    deactivateInPlace();
    if (adviseHolder_) adviseHolder_->SendOnClose();
  });
}

HRESULT ControlObject::GetMoniker(DWORD, DWORD, IMoniker** result) {
  if (!result) return E_POINTER;
  *result = nullptr;
  return E_NOTIMPL;
}

HRESULT ControlObject::GetClipboardData(DWORD, IDataObject** result) {
  if (!result) return E_POINTER;
  *result = nullptr;
  return E_NOTIMPL;
}

HRESULT ControlObject::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND, LPCRECT) {
  // Containers may ask for a verb that the control has not; it does then what the first one does.
  const bool isUnknown = verb > OLEIVERB_PRIMARY;
  const HRESULT result = call([&] {
    switch (isUnknown ? OLEIVERB_PRIMARY : verb) {
      case OLEIVERB_PRIMARY:
      case OLEIVERB_SHOW:
      case OLEIVERB_OPEN:
      case OLEIVERB_UIACTIVATE:
        activateInPlace();
        // A form that is being designed gives no control the focus.
        if (verb == OLEIVERB_SHOW || !ambients_.userMode) break;
        activateUi();
        if (uiActive_ && !surface_.hasFocus()) surface_.takeFocus();
        break;
      case OLEIVERB_INPLACEACTIVATE: activateInPlace(); break;
      case OLEIVERB_HIDE: deactivateInPlace(); break;
      case OLEIVERB_DISCARDUNDOSTATE: break;
      default: throw ComFailure{E_NOTIMPL};
    }
  });
  return isUnknown && SUCCEEDED(result) ? OLEOBJ_S_INVALIDVERB : result;
}

HRESULT ControlObject::EnumVerbs(IEnumOLEVERB** result) {
  if (!result) return E_POINTER;
  *result = nullptr;
  return OLE_S_USEREG;
}

HRESULT ControlObject::GetUserType(DWORD form, LPOLESTR* result) {
  return call([&] {
    target(result) = nullptr;
    // From here and not from the registry, where a host may have the library without registering
    // it.
    const std::wstring_view name = form == USERCLASSTYPE_FULL ? controlTitle : controlShortTitle;
    const std::size_t bytes = (name.size() + 1) * sizeof(wchar_t);
    *result = static_cast<LPOLESTR>(CoTaskMemAlloc(bytes));
    if (!*result) throw ComFailure{E_OUTOFMEMORY};
    (*result)[name.copy(*result, name.size())] = L'\0';
  });
}

HRESULT ControlObject::SetExtent(DWORD aspect, SIZEL* size) {
  return call([&] {
    requireContent(aspect);
    const SIZEL extent = target(size);
    if (extent.cx < 0 || extent.cy < 0) throw ComFailure{E_INVALIDARG};
    extent_ = extent;
    surface_.resize(toPixels(extent, surface_.look().dpi()));
    viewChanged();
  });
}

HRESULT ControlObject::GetExtent(DWORD aspect, SIZEL* size) {
  return call([&] {
    requireContent(aspect);
    target(size) = extent_;
  });
}

HRESULT ControlObject::Advise(IAdviseSink* sink, DWORD* cookie) {
  return call([&] {
    if (!adviseHolder_) require(CreateOleAdviseHolder(adviseHolder_.put()));
    require(adviseHolder_->Advise(sink, &target(cookie)));
  });
}

HRESULT ControlObject::Unadvise(DWORD cookie) {
  return call([&] {
    if (!adviseHolder_) throw ComFailure{OLE_E_NOCONNECTION};
    require(adviseHolder_->Unadvise(cookie));
  });
}

HRESULT ControlObject::EnumAdvise(IEnumSTATDATA** result) {
  return call([&] {
    target(result) = nullptr;
    if (adviseHolder_) require(adviseHolder_->EnumAdvise(result));
  });
}

HRESULT ControlObject::GetMiscStatus(DWORD aspect, DWORD* status) {
  return call([&] {
    target(status) = 0;
    requireContent(aspect);
    *status = controlMiscStatus;
  });
}

HRESULT ControlObject::GetControlInfo(CONTROLINFO* info) {
  return call([&] {
    CONTROLINFO& answer = target(info);
    answer.cb = sizeof answer;
    answer.hAccel = nullptr;
    answer.cAccel = 0;
    // With the list open these keys choose or leave an entry, not the form's default button.
    answer.dwFlags =
        surface_.wantsKey(VK_RETURN) ? CTRLINFO_EATS_RETURN | CTRLINFO_EATS_ESCAPE : 0u;
  });
}

HRESULT ControlObject::OnAmbientPropertyChange(DISPID) {
  return call([&] { applyAmbients(); });
}

HRESULT ControlObject::FreezeEvents(BOOL freeze) {
  return call([&] {
    if (freeze || events_.isFrozen()) events_.freeze(freeze != FALSE);
  });
}

HRESULT ControlObject::GetClassID(CLSID* result) {
  if (!result) return E_POINTER;
  *result = classId;
  return S_OK;
}

HRESULT ControlObject::GetSizeMax(ULARGE_INTEGER* size) {
  if (!size) return E_POINTER;
  size->QuadPart = 0;
  return S_OK;
}

void ControlObject::applyAmbients() {
  ambients_ = Ambients::of(site_.get());
  surface_.setBaseFont(ambients_.font ? &*ambients_.font : nullptr);
  surface_.setBackground(ambients_.backColor);
  surface_.setDisplayName(ambients_.displayName);
  surface_.setRightToLeft(isRightToLeft());
  if (inPlaceSite_) surface_.setEnabled(takesInput());
  viewChanged();
}

}  // namespace keyscout
