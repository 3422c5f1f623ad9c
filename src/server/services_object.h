#pragma once

#include "keyscout_h.h"
#include "server/com/automation.h"

namespace keyscout {

/// Hands objects of the host over to all controllers and controls on the calling thread: the
/// service that they trace to, and the source of the title of their message box. An absent object
/// brings the library's own back. They are kept until the thread ends.
class ServicesObject final : public Automation<ServicesObject, _HostServices> {
 public:
  static constexpr const CLSID& classId = CLSID_HostServices;
  static constexpr const IID& eventsId = IID_NULL;

  // Setting fails with type mismatch (13) where the object lacks a member, and then changes
  // nothing. Getting gives the host's object, or none while the library's own is used.
  HRESULT STDMETHODCALLTYPE putref_traceService(IDispatch* value) override;
  HRESULT STDMETHODCALLTYPE get_traceService(IDispatch** result) override;
  HRESULT STDMETHODCALLTYPE putref_messageTitleSource(IDispatch* value) override;
  HRESULT STDMETHODCALLTYPE get_messageTitleSource(IDispatch** result) override;
};

}  // namespace keyscout
