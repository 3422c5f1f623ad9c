#pragma once

#include <map>
#include <vector>

#include "server/com/object.h"

namespace keyscout {

/// Where hosts connect sinks of one interface. A part of the object that the sinks listen to: it
/// shares that object's references.
class ConnectionPoint final : public IConnectionPoint {
 public:
  /// `owner` is the object that this is a part of. Sinks must have the interface `id`; where
  /// `takesDispatch`, a plain IDispatch will do as well.
  ConnectionPoint(IConnectionPointContainer& owner, REFIID id, bool takesDispatch)
      : owner_(owner), id_(id), takesDispatch_(takesDispatch) {}
  virtual ~ConnectionPoint() = default;
  ConnectionPoint(const ConnectionPoint&) = delete;
  ConnectionPoint& operator=(const ConnectionPoint&) = delete;

  REFIID id() const { return id_; }
  /// Calls `tell` with each sink in the order of their connecting. The host may connect others
  /// meanwhile, which are not told, and disconnect some, which are told no more.
  template <class Tell>
  void tellEach(Tell&& tell) const {
    const DWORD last = lastCookie_;
    for (auto next = sinks_.begin(); next != sinks_.end() && next->first <= last;) {
      const DWORD cookie = next->first;
      const ComPtr<IUnknown> sink = next->second;
      tell(*sink);
      next = sinks_.upper_bound(cookie);
    }
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return owner_.AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return owner_.Release(); }

  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) override;
  HRESULT STDMETHODCALLTYPE
  GetConnectionPointContainer(IConnectionPointContainer** result) override;
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** result) override;

 private:
  IConnectionPointContainer& owner_;
  IID id_;
  bool takesDispatch_;
  std::map<DWORD, ComPtr<IUnknown>> sinks_;
  DWORD lastCookie_ = 0;
};

/// The enumeration of an object's connection points.
ComPtr<IEnumConnectionPoints> enumerate(const std::vector<IConnectionPoint*>& points);

}  // namespace keyscout
