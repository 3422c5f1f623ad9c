// The entry points of the library.

#include <windows.h>

#include <olectl.h>

#include "keyscout_h.h"
#include "platform/win32/thread_slot.h"
#include "platform/win32/win32_surface.h"
#include "server/brand_objects.h"
#include "server/com/apartment_reference.h"
#include "server/com/class_factory.h"
#include "server/com/failing_without_memory.h"
#include "server/control/control_object.h"
#include "server/controller_object.h"
#include "server/registration.h"
#include "server/services_object.h"

namespace keyscout {
namespace {

template <class Class>
IUnknown* newFactory() {
  return makeObject<ClassFactory<Class>>().detach();
}

struct ServedClass {
  const CLSID& id;
  IUnknown* (*newFactory)();
};

const ServedClass servedClasses[] = {
    {CLSID_RWKeyscoutController, newFactory<ControllerObject>},
    {CLSID_keyscoutControl, newFactory<ControlObject>},
    {CLSID_BrandList, newFactory<BrandListObject>},
    {CLSID_BrandItem, newFactory<BrandItemObject>},
    {CLSID_HostServices, newFactory<ServicesObject>},
};

}  // namespace
}  // namespace keyscout

using namespace keyscout;

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID);  // no header of the system has it

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID processEnds) {
  switch (reason) {
    case DLL_THREAD_DETACH: {
      const ApartmentReference::ThreadEnd ending;
      freeThreadSlot();
      break;
    }
    case DLL_PROCESS_DETACH:
      // At the end of the process the system takes everything back.
      if (!processEnds) Win32Surface::unregisterClass();
      break;
    default: break;
  }
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID id, REFIID interfaceId, void** result) {
  prepareToFail();
  return asComResult(IID_NULL, [&] {
    target(result) = nullptr;
    for (const ServedClass& served : servedClasses) {
      if (served.id != id) continue;
      const auto factory = ComPtr<IUnknown>::adopt(served.newFactory());
      return require(factory->QueryInterface(interfaceId, result));
    }
    throw ComFailure{CLASS_E_CLASSNOTAVAILABLE};
  });
}

STDAPI DllCanUnloadNow() { return ModuleUse::isAny() || isAnyThreadSlot() ? S_FALSE : S_OK; }
STDAPI DllRegisterServer() { return registerServer(); }
STDAPI DllUnregisterServer() { return unregisterServer(); }
