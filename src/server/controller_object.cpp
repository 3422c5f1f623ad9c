#include "server/controller_object.h"

#include "server/com/values.h"
#include "server/host_brands.h"
#include "server/windows_platform.h"

namespace keyscout {

using Controller = RWKeyscoutController;

ControllerObject::ControllerObject() : controller_(windowsPlatform()) {}

HRESULT ControllerObject::get(Flag property, VARIANT_BOOL* result) {
  return member([&] { target(result) = toVariantBool((controller_.*property)()); });
}

HRESULT ControllerObject::put(SetFlag property, VARIANT_BOOL value) {
  return member([&] { (controller_.*property)(fromVariantBool(value)); });
}

HRESULT ControllerObject::get(Text property, BSTR* result) {
  return member([&] { target(result) = newBstr((controller_.*property)()); });
}

HRESULT ControllerObject::put(SetText property, BSTR value) {
  return member([&] { (controller_.*property)(viewOf(value)); });
}

HRESULT ControllerObject::putBy(SetText property, const BSTR* value) {
  return member([&] { (controller_.*property)(viewOf(target(value))); });
}

HRESULT ControllerObject::run(Check check, VARIANT_BOOL* result) {
  return member([&] {
    target(result) = VARIANT_FALSE;
    *result = toVariantBool((controller_.*check)());
  });
}

HRESULT ControllerObject::putref_authorizedBrands(IDispatch* value) {
  return member([&] {
    const ComPtr<IDispatch> object{value};
    controller_.setAuthorizedBrands(object ? std::make_shared<HostBrandCollection>(object)
                                           : nullptr);
  });
}

HRESULT ControllerObject::get_authorizedBrands(IDispatch** result) {
  return member([&] {
    target(result) = nullptr;
    // In this library every collection of brands came from a host.
    const auto* const brands =
        static_cast<const HostBrandCollection*>(controller_.authorizedBrands().get());
    if (brands) *result = ComPtr<IDispatch>{brands->object()}.detach();
  });
}

HRESULT ControllerObject::get_hasdataIntegrity(VARIANT_BOOL* result) {
  return get(&Controller::hasdataIntegrity, result);
}
HRESULT ControllerObject::put_hasdataIntegrity(VARIANT_BOOL value) {
  return put(&Controller::setHasdataIntegrity, value);
}
HRESULT ControllerObject::get_isInitialized(VARIANT_BOOL* result) {
  return get(&Controller::isInitialized, result);
}
HRESULT ControllerObject::put_isInitialized(VARIANT_BOOL value) {
  return put(&Controller::setIsInitialized, value);
}
HRESULT ControllerObject::get_KeyscoutDirectory(BSTR* result) {
  return get(&Controller::KeyscoutDirectory, result);
}
HRESULT ControllerObject::put_KeyscoutDirectory(BSTR* value) {
  return putBy(&Controller::setKeyscoutDirectory, value);
}
HRESULT ControllerObject::get_KeyscoutIndexFile(BSTR* result) {
  return get(&Controller::KeyscoutIndexFile, result);
}
HRESULT ControllerObject::put_KeyscoutIndexFile(BSTR* value) {
  return putBy(&Controller::setKeyscoutIndexFile, value);
}
HRESULT ControllerObject::get_CatalogNumbersDownloadFile(BSTR* result) {
  return get(&Controller::CatalogNumbersDownloadFile, result);
}
HRESULT ControllerObject::put_CatalogNumbersDownloadFile(BSTR* value) {
  return putBy(&Controller::setCatalogNumbersDownloadFile, value);
}
HRESULT ControllerObject::get_updateURL(BSTR* result) {
  return get(&Controller::updateURL, result);
}
HRESULT ControllerObject::put_updateURL(BSTR value) {
  return put(&Controller::setUpdateURL, value);
}
HRESULT ControllerObject::get_updateURLFile(BSTR* result) {
  return get(&Controller::updateURLFile, result);
}
HRESULT ControllerObject::put_updateURLFile(BSTR value) {
  return put(&Controller::setUpdateURLFile, value);
}
HRESULT ControllerObject::get_updaterExe(BSTR* result) {
  return get(&Controller::updaterExe, result);
}
HRESULT ControllerObject::put_updaterExe(BSTR value) {
  return put(&Controller::setUpdaterExe, value);
}
HRESULT ControllerObject::get_KeyscoutInitialized(VARIANT_BOOL* result) {
  return get(&Controller::KeyscoutInitialized, result);
}
HRESULT ControllerObject::get_isKeyscoutAuthenticated(VARIANT_BOOL* result) {
  return get(&Controller::isKeyscoutAuthenticated, result);
}
HRESULT ControllerObject::put_isKeyscoutAuthenticated(VARIANT_BOOL value) {
  return put(&Controller::setIsKeyscoutAuthenticated, value);
}
HRESULT ControllerObject::get_KeyscoutEnabled(VARIANT_BOOL* result) {
  return get(&Controller::KeyscoutEnabled, result);
}
HRESULT ControllerObject::put_KeyscoutEnabled(VARIANT_BOOL value) {
  return put(&Controller::setKeyscoutEnabled, value);
}
HRESULT ControllerObject::get_KeyscoutLocked(VARIANT_BOOL* result) {
  return get(&Controller::KeyscoutLocked, result);
}
HRESULT ControllerObject::put_KeyscoutLocked(VARIANT_BOOL value) {
  return put(&Controller::setKeyscoutLocked, value);
}

HRESULT ControllerObject::initialize(VARIANT* result) {
  return member([&] {
    VariantInit(&target(result));
    controller_.initialize();
  });
}
HRESULT ControllerObject::checkDownloadVersion(VARIANT_BOOL* result) {
  return run(&Controller::checkDownloadVersion, result);
}
HRESULT ControllerObject::init(VARIANT_BOOL* result) { return run(&Controller::init, result); }
HRESULT ControllerObject::tryToUnlock(VARIANT_BOOL* result) {
  return run(&Controller::tryToUnlock, result);
}
HRESULT ControllerObject::resetLastTableNumber(VARIANT_BOOL* result) {
  return run(&Controller::resetLastTableNumber, result);
}
HRESULT ControllerObject::checkCatalogControlFile(VARIANT_BOOL* result) {
  return run(&Controller::checkCatalogControlFile, result);
}
HRESULT ControllerObject::needToUpdate(short days) {
  return member([&] { controller_.needToUpdate(days); });
}
HRESULT ControllerObject::authenticateRequiredProperties(BSTR strKeyscoutDirectory,
                                                         BSTR strKeyscoutIndexFile,
                                                         BSTR strCatalogNumbersDownloadFile) {
  return member([&] {
    controller_.authenticateRequiredProperties(viewOf(strKeyscoutDirectory),
                                               viewOf(strKeyscoutIndexFile),
                                               viewOf(strCatalogNumbersDownloadFile));
  });
}

}  // namespace keyscout
