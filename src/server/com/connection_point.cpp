#include "server/com/connection_point.h"

#include <olectl.h>

#include "server/com/enumerator.h"

namespace keyscout {
namespace {

struct PointCopier {
  using Kept = ComPtr<IConnectionPoint>;
  static void copy(const Kept& point, IConnectionPoint*& given) { given = Kept{point}.detach(); }
};
using PointEnumerator = Enumerator<IEnumConnectionPoints, IConnectionPoint*, PointCopier>;

struct Connection {
  ComPtr<IUnknown> sink;
  DWORD cookie;
};
struct ConnectionCopier {
  using Kept = Connection;
  static void copy(const Kept& connection, CONNECTDATA& given) {
    given = {ComPtr<IUnknown>{connection.sink}.detach(), connection.cookie};
  }
};
using ConnectionEnumerator = Enumerator<IEnumConnections, CONNECTDATA, ConnectionCopier>;

}  // namespace

HRESULT ConnectionPoint::QueryInterface(REFIID id, void** result) {
  if (!result) return E_POINTER;
  *result = nullptr;
  if (id != __uuidof(IUnknown) && id != __uuidof(IConnectionPoint)) return E_NOINTERFACE;
  *result = static_cast<IConnectionPoint*>(this);
  AddRef();
  return S_OK;
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* id) {
  if (!id) return E_POINTER;
  *id = id_;
  return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** result) {
  if (!result) return E_POINTER;
  *result = ComPtr<IConnectionPointContainer>{&owner_}.detach();
  return S_OK;
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
  return asComResult(__uuidof(IConnectionPoint), [&] {
    target(cookie) = 0;
    if (!sink) throw ComFailure{E_POINTER};
    ComPtr<IUnknown> connected;
    HRESULT found = sink->QueryInterface(id_, connected.putAny());
    if (FAILED(found) && takesDispatch_)
      found = sink->QueryInterface(__uuidof(IDispatch), connected.putAny());
    if (FAILED(found)) throw ComFailure{CONNECT_E_CANNOTCONNECT};
    sinks_.emplace(++lastCookie_, std::move(connected));
    *cookie = lastCookie_;
  });
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) {
  const auto found = sinks_.find(cookie);
  if (found == sinks_.end()) return CONNECT_E_NOCONNECTION;
  const auto leaving = std::move(found->second);  // released when it is no longer in the table
  sinks_.erase(found);
  return S_OK;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** result) {
  return asComResult(__uuidof(IConnectionPoint), [&] {
    target(result) = nullptr;
    std::vector<Connection> connections;
    for (const auto& [cookie, sink] : sinks_) connections.push_back({sink, cookie});
    *result = makeObject<ConnectionEnumerator>(std::move(connections)).detach();
  });
}

ComPtr<IEnumConnectionPoints> enumerate(const std::vector<IConnectionPoint*>& points) {
  std::vector<ComPtr<IConnectionPoint>> kept(points.begin(), points.end());
  return ComPtr<IEnumConnectionPoints>::adopt(
      makeObject<PointEnumerator>(std::move(kept)).detach());
}

}  // namespace keyscout
