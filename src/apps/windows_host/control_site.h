#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>

#include <functional>
#include <map>

#include "server/com/com_ptr.h"
#include "server/com/object.h"
#include "server/com/values.h"

namespace keyscout {

/// A place for one OLE control on a window, whose owner must call `close` before the window goes.
/// Tells the control the ambient properties it is given here, and passes keys on.
class ControlSite final
    : public Object<IOleClientSite, IOleInPlaceSite, IOleControlSite, IOleInPlaceFrame, IDispatch> {
 public:
  explicit ControlSite(HWND parent) : parent_(parent) {}

  /// Is told the name of each call that the control makes on the site, and answers it.
  std::function<HRESULT(const char* call)> onCall;
  /// Ambient properties by their dispatch identifiers; others are not there.
  std::map<DISPID, VARIANT> ambients;

  /// Creates the control and activates it at `at`, in pixels of the window. Fails with ComFailure.
  void create(REFCLSID id, const RECT& at);
  /// Connects `sink` to the control's events of the interface `events`.
  void connect(REFIID events, IUnknown* sink);
  void moveTo(const RECT& at);
  /// Ends the control; safe from inside its events, too.
  void close();

  IUnknown* control() const { return control_.get(); }
  template <class Interface>
  ComPtr<Interface> controlAs() const {
    return ComPtr<Interface>::from(control_.get());
  }
  /// True when the control has used up the message.
  bool translate(MSG& message);
  bool hasFocus() const;

  // IOleClientSite
  HRESULT STDMETHODCALLTYPE SaveObject() override { return noted("SaveObject"); }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** result) override;
  HRESULT STDMETHODCALLTYPE ShowObject() override { return noted("ShowObject"); }
  HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return noted("OnShowWindow"); }
  HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }

  // IOleWindow
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* result) override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return S_OK; }

  // IOleInPlaceSite
  HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return noted("CanInPlaceActivate"); }
  HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return noted("OnInPlaceActivate"); }
  HRESULT STDMETHODCALLTYPE OnUIActivate() override { return noted("OnUIActivate"); }
  HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame,
                                             IOleInPlaceUIWindow** document, LPRECT position,
                                             LPRECT clip, LPOLEINPLACEFRAMEINFO info) override;
  HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return S_FALSE; }
  HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return noted("OnUIDeactivate"); }
  HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return noted("OnInPlaceDeactivate"); }
  HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT) override { return noted("OnPosRectChange"); }

  // IOleControlSite
  HRESULT STDMETHODCALLTYPE OnControlInfoChanged() override {
    return noted("OnControlInfoChanged");
  }
  HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, DWORD) override;
  HRESULT STDMETHODCALLTYPE OnFocus(BOOL got) override {
    return noted(got ? "OnFocus" : "OnFocusLost");
  }
  HRESULT STDMETHODCALLTYPE ShowPropertyFrame() override { return E_NOTIMPL; }

  // IOleInPlaceFrame
  HRESULT STDMETHODCALLTYPE GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
  HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) override {
    return INPLACE_E_NOTOOLSPACE;
  }
  HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override;
  HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

  // IDispatch: the ambient properties
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result,
                                   EXCEPINFO*, UINT*) override;

 private:
  HRESULT noted(const char* call) { return onCall ? onCall(call) : S_OK; }

  HWND parent_;
  RECT at_{};
  ComPtr<IUnknown> control_;
  ComPtr<IOleInPlaceActiveObject> active_;
  ComPtr<IConnectionPoint> eventPoint_;
  DWORD eventCookie_ = 0;
};

/// Passes the events of a control on by their dispatch identifiers.
class EventSink final : public Object<IDispatch> {
 public:
  using Handler = std::function<void(DISPID event, DISPPARAMS& arguments)>;
  explicit EventSink(Handler handler) : handler_(std::move(handler)) {}

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*,
                                   EXCEPINFO*, UINT*) override {
    if (!arguments) return E_POINTER;
    handler_(id, *arguments);
    return S_OK;
  }

 private:
  Handler handler_;
};

}  // namespace keyscout
