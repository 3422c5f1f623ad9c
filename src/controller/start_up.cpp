#include "controller/keyscout_controller.h"
#include "controller/refusal.h"

namespace keyscout {

Boolean RWKeyscoutController::init() {
  // A failed start-up is reported under the name of the check that it begins with.
  static constexpr Procedure procedure{controllerClass, u"init()",
                                       u"authenticateRequiredProperties", 1};
  return tracer_.traced(
      procedure,
      [&]() -> Boolean {
        tracer_.message(procedure, u"Calling keyscoutModule.authenticateRequiredProperties(" +
                                       KeyscoutDirectory() + u", " + KeyscoutIndexFile() + u", " +
                                       CatalogNumbersDownloadFile() + u")");
        // Copies, since the trace service may change the settings meanwhile.
        authenticateRequiredProperties(String{KeyscoutDirectory()}, String{KeyscoutIndexFile()},
                                       String{CatalogNumbersDownloadFile()});
        if (!isKeyscoutAuthenticated())
          throw refusal(KeyscoutErrorCodes::AuthenticationFailed,
                        u"Keyscout failed to authenticate.");

        const Boolean rightVersion = checkDownloadVersion();
        const Boolean complete = checkCatalogControlFile();
        if (rightVersion && complete) {
          initialize();
        } else {
          setIsInitialized(False);
        }
        return isInitialized();
      },
      [&](const Error& error) -> Boolean {
        tracer_.report(procedure, error);
        setKeyscoutLocked(True);
        throw Error{error};
      });
}

Boolean RWKeyscoutController::tryToUnlock() {
  static constexpr Procedure procedure = controllerProcedure(u"tryToUnlock");
  return tracer_.traced(procedure, [&]() -> Boolean {
    if (!checkCatalogControlFile()) return False;
    if (!init()) return False;
    setKeyscoutLocked(False);
    return True;
  });
}

}  // namespace keyscout
