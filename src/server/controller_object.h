#pragma once

#include "controller/keyscout_controller.h"
#include "keyscout_h.h"
#include "server/com/automation.h"

namespace keyscout {

/// The controller as a COM object. What each member does stands with `RWKeyscoutController`.
class ControllerObject final : public Automation<ControllerObject, _RWKeyscoutController> {
 public:
  static constexpr const CLSID& classId = CLSID_RWKeyscoutController;
  static constexpr const IID& eventsId = IID_NULL;

  ControllerObject();

  HRESULT STDMETHODCALLTYPE putref_authorizedBrands(IDispatch* value) override;
  HRESULT STDMETHODCALLTYPE get_authorizedBrands(IDispatch** result) override;
  HRESULT STDMETHODCALLTYPE get_hasdataIntegrity(VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE put_hasdataIntegrity(VARIANT_BOOL value) override;
  HRESULT STDMETHODCALLTYPE get_isInitialized(VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE put_isInitialized(VARIANT_BOOL value) override;
  HRESULT STDMETHODCALLTYPE get_KeyscoutDirectory(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE put_KeyscoutDirectory(BSTR* value) override;
  HRESULT STDMETHODCALLTYPE get_KeyscoutIndexFile(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE put_KeyscoutIndexFile(BSTR* value) override;
  HRESULT STDMETHODCALLTYPE get_CatalogNumbersDownloadFile(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE put_CatalogNumbersDownloadFile(BSTR* value) override;
  HRESULT STDMETHODCALLTYPE get_updateURL(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE put_updateURL(BSTR value) override;
  HRESULT STDMETHODCALLTYPE get_updateURLFile(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE put_updateURLFile(BSTR value) override;
  HRESULT STDMETHODCALLTYPE get_updaterExe(BSTR* result) override;
  HRESULT STDMETHODCALLTYPE put_updaterExe(BSTR value) override;
  HRESULT STDMETHODCALLTYPE get_KeyscoutInitialized(VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE get_isKeyscoutAuthenticated(VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE put_isKeyscoutAuthenticated(VARIANT_BOOL value) override;
  HRESULT STDMETHODCALLTYPE get_KeyscoutEnabled(VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE put_KeyscoutEnabled(VARIANT_BOOL value) override;
  HRESULT STDMETHODCALLTYPE get_KeyscoutLocked(VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE put_KeyscoutLocked(VARIANT_BOOL value) override;
  HRESULT STDMETHODCALLTYPE initialize(VARIANT* result) override;
  HRESULT STDMETHODCALLTYPE checkDownloadVersion(VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE init(VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE tryToUnlock(VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE resetLastTableNumber(VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE checkCatalogControlFile(VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE needToUpdate(short days) override;
  HRESULT STDMETHODCALLTYPE
  authenticateRequiredProperties(BSTR strKeyscoutDirectory, BSTR strKeyscoutIndexFile,
                                 BSTR strCatalogNumbersDownloadFile) override;

 private:
  using Flag = Boolean (RWKeyscoutController::*)() const;
  using SetFlag = void (RWKeyscoutController::*)(Boolean);
  using Text = const String& (RWKeyscoutController::*)() const;
  using SetText = void (RWKeyscoutController::*)(StringView);
  using Check = Boolean (RWKeyscoutController::*)();

  // One property or one check of the controller.
  HRESULT get(Flag property, VARIANT_BOOL* result);
  HRESULT put(SetFlag property, VARIANT_BOOL value);
  HRESULT get(Text property, BSTR* result);
  HRESULT put(SetText property, BSTR value);
  HRESULT putBy(SetText property, const BSTR* value);
  HRESULT run(Check check, VARIANT_BOOL* result);

  RWKeyscoutController controller_;
};

}  // namespace keyscout
