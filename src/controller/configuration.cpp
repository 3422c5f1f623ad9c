#include "controller/keyscout_controller.h"
#include "controller/refusal.h"

namespace keyscout {

RWKeyscoutController::RWKeyscoutController(Platform& platform)
    : platform_(platform), tracer_(platform.objectLibrary) {}

const std::shared_ptr<BrandCollection>& RWKeyscoutController::authorizedBrands() const {
  return module_->authorizedBrands;
}
void RWKeyscoutController::setAuthorizedBrands(std::shared_ptr<BrandCollection> brands) {
  module_->authorizedBrands = std::move(brands);
}

const String& RWKeyscoutController::KeyscoutDirectory() const { return module_->KeyscoutDirectory; }
void RWKeyscoutController::setKeyscoutDirectory(StringView directory) {
  module_->KeyscoutDirectory = directory;
  if (!directory.ends_with(u'\\')) module_->KeyscoutDirectory += u'\\';
}

const String& RWKeyscoutController::KeyscoutIndexFile() const { return module_->KeyscoutIndexFile; }
void RWKeyscoutController::setKeyscoutIndexFile(StringView name) {
  module_->KeyscoutIndexFile = name;
}

const String& RWKeyscoutController::CatalogNumbersDownloadFile() const {
  return module_->CatalogNumbersDownloadFile;
}
void RWKeyscoutController::setCatalogNumbersDownloadFile(StringView name) {
  module_->CatalogNumbersDownloadFile = name;
}

Boolean RWKeyscoutController::hasdataIntegrity() const { return module_->hasdataIntegrity; }
void RWKeyscoutController::setHasdataIntegrity(Boolean value) { module_->hasdataIntegrity = value; }

const String& RWKeyscoutController::updateURL() const { return module_->updateURL; }
void RWKeyscoutController::setUpdateURL(StringView value) { module_->updateURL = value; }

const String& RWKeyscoutController::updateURLFile() const { return module_->updateURLFile; }
void RWKeyscoutController::setUpdateURLFile(StringView value) { module_->updateURLFile = value; }

const String& RWKeyscoutController::updaterExe() const { return module_->updaterExe; }
void RWKeyscoutController::setUpdaterExe(StringView value) { module_->updaterExe = value; }

Boolean RWKeyscoutController::isInitialized() const { return module_->isInitialized; }
void RWKeyscoutController::setIsInitialized(Boolean value) { module_->isInitialized = value; }

Boolean RWKeyscoutController::isKeyscoutAuthenticated() const {
  return module_->isKeyscoutAuthenticated;
}
void RWKeyscoutController::setIsKeyscoutAuthenticated(Boolean value) {
  module_->isKeyscoutAuthenticated = value;
}

Boolean RWKeyscoutController::KeyscoutEnabled() const { return module_->KeyscoutEnabled; }
void RWKeyscoutController::setKeyscoutEnabled(Boolean value) { module_->KeyscoutEnabled = value; }

Boolean RWKeyscoutController::KeyscoutLocked() const { return module_->KeyscoutLocked; }
void RWKeyscoutController::setKeyscoutLocked(Boolean value) { module_->KeyscoutLocked = value; }

String RWKeyscoutController::pathInDirectory(StringView fileName) const {
  return KeyscoutDirectory() + String{fileName};
}

void RWKeyscoutController::authenticateRequiredProperties(
    StringView strKeyscoutDirectory, StringView strKeyscoutIndexFile,
    StringView strCatalogNumbersDownloadFile) {
  static constexpr Procedure procedure{controllerClass, u"authenticateRequiredProperties()",
                                       u"authenticateRequiredProperties"};
  const auto refuse = [&](StringView emptySetting) {
    setIsKeyscoutAuthenticated(False);
    tracer_.message(procedure, u"Len(" + String{emptySetting} + u") < 1");
    tracer_.message(procedure, u"Keyscout Not Authenticated");
    tracer_.exit(procedure);
    throw refusal(KeyscoutErrorCodes::RequiredFilesMissing,
                  String{strKeyscoutDirectory} + u" cannot be found.");
  };

  tracer_.reportingFailure(procedure, [&] {
    tracer_.enter(procedure);
    if (strKeyscoutDirectory.empty()) refuse(u"strKeyscoutDirectory");
    if (strKeyscoutIndexFile.empty()) refuse(u"strKeyscoutIndexFile");
    if (strCatalogNumbersDownloadFile.empty()) refuse(u"strCatalogNumbersDownloadFile");
    tracer_.message(procedure, u"Keyscout Authenticated!!");
    setIsKeyscoutAuthenticated(True);
    tracer_.exit(procedure);
  });
}

}  // namespace keyscout
