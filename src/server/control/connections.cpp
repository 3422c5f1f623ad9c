// What the container connects to the control.

#include <olectl.h>

#include "server/control/control_object.h"

namespace keyscout {

HRESULT ControlObject::EnumConnectionPoints(IEnumConnectionPoints** result) {
  return call([&] {
    target(result) = nullptr;
    *result = enumerate({&events_.point(), &propertySinks_}).detach();
  });
}

HRESULT ControlObject::FindConnectionPoint(REFIID id, IConnectionPoint** result) {
  return call([&] {
    target(result) = nullptr;
    for (ConnectionPoint* point : {&events_.point(), &propertySinks_}) {
      // The events are found under IDispatch, too.
      const bool isEvents = point == &events_.point() && id == IID_IDispatch;
      if (point->id() == id || isEvents) {
        *result = ComPtr<IConnectionPoint>{point}.detach();
        return;
      }
    }
    throw ComFailure{CONNECT_E_NOCONNECTION};
  });
}

HRESULT ControlObject::QuickActivate(QACONTAINER* container, QACONTROL* control) {
  return call([&] {
    const QACONTAINER& given = target(container);
    QACONTROL& answer = target(control);
    if (given.cbSize < sizeof given || answer.cbSize < sizeof answer)
      throw ComFailure{E_INVALIDARG};
    const ULONG size = answer.cbSize;
    answer = {};
    answer.cbSize = size;
    require(SetClientSite(given.pClientSite));
    if (given.pAdviseSink) SetAdvise(DVASPECT_CONTENT, 0, given.pAdviseSink);
    if (given.pUnkEventSink) events_.point().Advise(given.pUnkEventSink, &answer.dwEventCookie);
    if (given.pPropertyNotifySink)
      propertySinks_.Advise(given.pPropertyNotifySink, &answer.dwPropNotifyCookie);
    answer.dwMiscStatus = controlMiscStatus;
    answer.dwViewStatus = VIEWSTATUS_OPAQUE;
  });
}

void ControlObject::propertyChanged(DISPID id) {
  propertySinks_.tellEach(
      [&](IUnknown& sink) { static_cast<IPropertyNotifySink&>(sink).OnChanged(id); });
  viewChanged();
}

}  // namespace keyscout
