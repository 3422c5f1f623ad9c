#include "server/services_object.h"

#include "server/host_services.h"
#include "shared/keyscout_module.h"

namespace keyscout {
namespace {

/// The service that goes may be in the middle of a call: it touches nothing of its own after that.
template <class Adapter, class Service>
void replace(std::shared_ptr<Service>& service, IDispatch* value) {
  const ComPtr<IDispatch> object{value};
  std::shared_ptr<Service> other;
  if (object) other = std::make_shared<Adapter>(object);
  service.swap(other);
}

template <class Adapter, class Service>
void give(const std::shared_ptr<Service>& service, IDispatch** result) {
  target(result) = nullptr;
  if (const auto* const adapter = dynamic_cast<const Adapter*>(service.get()))
    *result = ComPtr<IDispatch>{adapter->object()}.detach();
}

}  // namespace

HRESULT ServicesObject::putref_traceService(IDispatch* value) {
  return member([&] { replace<HostTrace>(keyscoutModule::ofThisThread().traceService, value); });
}

HRESULT ServicesObject::get_traceService(IDispatch** result) {
  return member([&] { give<HostTrace>(keyscoutModule::ofThisThread().traceService, result); });
}

HRESULT ServicesObject::putref_messageTitleSource(IDispatch* value) {
  return member(
      [&] { replace<HostTitle>(keyscoutModule::ofThisThread().messageTitleSource, value); });
}

HRESULT ServicesObject::get_messageTitleSource(IDispatch** result) {
  return member(
      [&] { give<HostTitle>(keyscoutModule::ofThisThread().messageTitleSource, result); });
}

}  // namespace keyscout
