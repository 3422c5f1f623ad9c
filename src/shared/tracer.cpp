#include "shared/tracer.h"

#include "shared/keyscout_module.h"

namespace keyscout {

TraceService& Tracer::service() {
  auto& service = keyscoutModule::ofThisThread().traceService;
  if (!service) service = library_.createTraceService();
  return *service;
}

void Tracer::enter(const Procedure& procedure) {
  service().enterProcedure(procedure.className, procedure.name, procedure.traceLevel);
}

void Tracer::exit(const Procedure& procedure) {
  service().exitProcedure(procedure.className, procedure.name, procedure.traceLevel);
}

void Tracer::message(const Procedure& procedure, StringView text) {
  service().traceMessage(procedure.className, procedure.name, text, 0);
}

void Tracer::log(const Procedure& procedure, StringView text) {
  service().logMessage(procedure.className, procedure.name, text, 0);
}

void Tracer::report(const Procedure& procedure, const Error& error) noexcept {
  ignoringFailure(
      [&] { service().reportError(procedure.className, procedure.failureName, error, 0); });
}

}  // namespace keyscout
