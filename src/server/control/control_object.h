#pragma once

#include "control/keyscout_control.h"
#include "keyscout_h.h"
#include "platform/win32/win32_surface.h"
#include "server/com/automation.h"
#include "server/com/connection_point.h"
#include "server/control/ambients.h"
#include "server/control/event_source.h"

namespace keyscout {

/// What a person calls the control, at length and in a menu.
inline constexpr const wchar_t* controlTitle = L"Keyscout catalog number lookup";
inline constexpr const wchar_t* controlShortTitle = L"Keyscout";

/// How the control behaves in a container: a thing inside the form, active while it is visible.
inline constexpr DWORD controlMiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                           OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                           OLEMISC_SETCLIENTSITEFIRST;

/// The lookup control as an OLE control. Its windows are there from its creation, out of sight, so
/// its properties work in any state; in-place activation puts them on the container's window.
///
/// It deliberately has no IObjectSafety: it reads files that its host names.
class ControlObject final
    : public Automation<ControlObject, _keyscoutControl, IOleObject, IOleControl, IOleInPlaceObject,
                        IOleInPlaceActiveObject, IViewObject2, IPersistStreamInit, IPersistStorage,
                        IPersistPropertyBag, IConnectionPointContainer, IQuickActivate>,
      private SurfaceOwner {
 public:
  static constexpr const CLSID& classId = CLSID_keyscoutControl;
  static constexpr const IID& eventsId = DIID___keyscoutControl;

  ControlObject();

  // _keyscoutControl: control_members.cpp
  HRESULT STDMETHODCALLTYPE get_text(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE put_text(BSTR value) override;
  HRESULT STDMETHODCALLTYPE hideList() override;
  HRESULT STDMETHODCALLTYPE setAuthorizedBrands(IDispatch** authroizedBrands) override;
  HRESULT STDMETHODCALLTYPE lockKeyscout() override;
  HRESULT STDMETHODCALLTYPE doit() override;
  HRESULT STDMETHODCALLTYPE get_selStart(short* result) override;
  HRESULT STDMETHODCALLTYPE put_selStart(short value) override;
  HRESULT STDMETHODCALLTYPE get_selLength(short* result) override;
  HRESULT STDMETHODCALLTYPE put_selLength(short value) override;
  HRESULT STDMETHODCALLTYPE get_Enabled(VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE put_Enabled(VARIANT_BOOL value) override;
  HRESULT STDMETHODCALLTYPE get_ForeColor(VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE put_ForeColor(VARIANT value) override;
  HRESULT STDMETHODCALLTYPE get_BackColor(VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE put_BackColor(VARIANT value) override;
  HRESULT STDMETHODCALLTYPE get_FontBold(VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE put_FontBold(VARIANT_BOOL value) override;
  HRESULT STDMETHODCALLTYPE get_TheToolTipText(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE put_TheToolTipText(BSTR value) override;
  HRESULT STDMETHODCALLTYPE get_isListShowing(VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE get_Locked(VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE put_Locked(VARIANT_BOOL value) override;
  HRESULT STDMETHODCALLTYPE get_brand(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE put_brand(BSTR* value) override;

  // IOleObject: ole_object.cpp
  HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) override;
  HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** result) override;
  HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE Close(DWORD) override;
  HRESULT STDMETHODCALLTYPE SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** result) override;
  HRESULT STDMETHODCALLTYPE InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD, IDataObject** result) override;
  HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND, LPCRECT) override;
  HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB** result) override;
  HRESULT STDMETHODCALLTYPE Update() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE IsUpToDate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID* result) override { return GetClassID(result); }
  HRESULT STDMETHODCALLTYPE GetUserType(DWORD form, LPOLESTR* result) override;
  HRESULT STDMETHODCALLTYPE SetExtent(DWORD aspect, SIZEL* size) override;
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, SIZEL* size) override;
  HRESULT STDMETHODCALLTYPE Advise(IAdviseSink* sink, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA** result) override;
  HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD* status) override;
  HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }

  // IOleControl: ole_object.cpp
  HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) override;
  HRESULT STDMETHODCALLTYPE OnMnemonic(MSG*) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID id) override;
  HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL freeze) override;

  // IOleInPlaceObject, IOleInPlaceActiveObject: in_place.cpp
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* result) override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE InPlaceDeactivate() override;
  HRESULT STDMETHODCALLTYPE UIDeactivate() override;
  HRESULT STDMETHODCALLTYPE SetObjectRects(LPCRECT position, LPCRECT clip) override;
  HRESULT STDMETHODCALLTYPE ReactivateAndUndo() override { return INPLACE_E_NOTUNDOABLE; }
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG message) override;
  HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return S_OK; }

  // IViewObject2: view.cpp
  HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC target,
                                 LPCRECTL bounds, LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR),
                                 ULONG_PTR) override;
  HRESULT STDMETHODCALLTYPE GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                                        LOGPALETTE**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Freeze(DWORD, LONG, void*, DWORD*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Unfreeze(DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
  HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) override {
    return GetExtent(aspect, size);
  }

  // IPersistStreamInit, IPersistStorage, IPersistPropertyBag: a control starts afresh with every
  // form, so whatever a container loads or saves is accepted and nothing is kept.
  HRESULT STDMETHODCALLTYPE GetClassID(CLSID* result) override;
  HRESULT STDMETHODCALLTYPE IsDirty() override { return S_FALSE; }
  HRESULT STDMETHODCALLTYPE InitNew() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE Load(IStream* from) override { return from ? S_OK : E_POINTER; }
  HRESULT STDMETHODCALLTYPE Save(IStream* to, BOOL) override { return to ? S_OK : E_POINTER; }
  HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) override;
  HRESULT STDMETHODCALLTYPE InitNew(IStorage* in) override { return in ? S_OK : E_POINTER; }
  HRESULT STDMETHODCALLTYPE Load(IStorage* from) override { return from ? S_OK : E_POINTER; }
  HRESULT STDMETHODCALLTYPE Save(IStorage* to, BOOL) override { return to ? S_OK : E_POINTER; }
  HRESULT STDMETHODCALLTYPE SaveCompleted(IStorage*) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE HandsOffStorage() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE Load(IPropertyBag* from, IErrorLog*) override {
    return from ? S_OK : E_POINTER;
  }
  HRESULT STDMETHODCALLTYPE Save(IPropertyBag* to, BOOL, BOOL) override {
    return to ? S_OK : E_POINTER;
  }

  // IConnectionPointContainer, IQuickActivate: connections.cpp
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** result) override;
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** result) override;
  HRESULT STDMETHODCALLTYPE QuickActivate(QACONTAINER* container, QACONTROL* control) override;
  HRESULT STDMETHODCALLTYPE SetContentExtent(LPSIZEL size) override {
    return SetExtent(DVASPECT_CONTENT, size);
  }
  HRESULT STDMETHODCALLTYPE GetContentExtent(LPSIZEL size) override {
    return GetExtent(DVASPECT_CONTENT, size);
  }

 private:
  /// The body of a method that reaches the widgets or the container. Whatever the host does in
  /// the middle of it, this object stays until its end.
  template <class Body>
  HRESULT call(Body&& body) noexcept {
    return this->member([&] {
      const HostCall hostCall{surface_};
      body();
    });
  }

  // SurfaceOwner
  void workBegins() noexcept override { AddRef(); }
  void workEnds() noexcept override { Release(); }
  void listClosedByUser() noexcept override { control_.hideList(); }
  void wantedKeysChanged() noexcept override;
  void windowDestroyed() noexcept override;
  void focusCame() noexcept override;
  void focusLeft() noexcept override;

  void activateInPlace();
  void activateUi();
  void deactivateUi();
  void deactivateInPlace();
  ComPtr<IOleInPlaceSite> leaveSite();
  void tellFocus(bool got);
  void applyAmbients();
  bool takesInput() const;
  bool isRightToLeft() const;
  void viewChanged();
  void propertyChanged(DISPID id);

  EventSource events_{*this};
  ConnectionPoint propertySinks_{*this, IID_IPropertyNotifySink, false};
  Win32Surface surface_{*this};
  keyscoutControl control_;

  ComPtr<IOleClientSite> site_;
  ComPtr<IOleInPlaceSite> inPlaceSite_;  // while active in place
  ComPtr<IOleInPlaceFrame> frame_;
  ComPtr<IOleInPlaceUIWindow> document_;
  bool uiActive_ = false;
  bool focusTold_ = false;  // the container believes that the control has the focus
  Ambients ambients_ = Ambients::of(nullptr);
  SIZEL extent_{};  // HIMETRIC

  ComPtr<IOleAdviseHolder> adviseHolder_;
  ComPtr<IAdviseSink> viewSink_;
  DWORD viewAspects_ = 0;
  DWORD viewFlags_ = 0;
};

}  // namespace keyscout
