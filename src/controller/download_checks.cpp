#include <chrono>

#include "controller/keyscout_controller.h"
#include "controller/refusal.h"
#include "shared/data_format/control_words.h"
#include "shared/data_format/directory_files.h"
#include "shared/data_format/record_columns.h"

namespace keyscout {

Boolean RWKeyscoutController::checkDownloadVersion() {
  static constexpr Procedure procedure = controllerProcedure(u"checkDownloadVersion");
  return tracer_.traced(
      procedure,
      [&]() -> Boolean {
        String header;
        {
          const auto file = platform_.files.open(pathInDirectory(CatalogNumbersDownloadFile()));
          if (!file->atEnd()) header = platform_.codePage.decode(file->readLine());
        }
        if (header == downloadHeader) return True;
        if (header.starts_with(u'0'))
          throw refusal(KeyscoutErrorCodes::CatalogFormatChanged,
                        u"The format of the catalog number download has changed.");
        throw refusal(KeyscoutErrorCodes::InconsistantVersion,
                      u"The version of the catalog numbers downloaded is not consistant with\r\n"
                      u"the current version of Tessaly.");
      },
      [&](const Error& error) -> Boolean {
        if (error.hasNumber(KeyscoutErrorCodes::CatalogFormatChanged) ||
            error.hasNumber(KeyscoutErrorCodes::InconsistantVersion))
          throw Error{error};
        if (error.hasNumber(PlatformError::fileNotFound))
          throw refusal(KeyscoutErrorCodes::RequiredFilesMissing,
                        u"The catalog number download file does not exist.");
        tracer_.report(procedure, error);
        return False;
      });
}

Boolean RWKeyscoutController::checkCatalogControlFile() {
  static constexpr Procedure procedure = controllerProcedure(u"checkCatalogControlFile");
  return tracer_.traced(
      procedure,
      [&]() -> Boolean {
        String status;
        {
          const auto file = platform_.files.open(pathInDirectory(DirectoryFiles::control));
          while (!file->atEnd()) status += platform_.codePage.decode(file->readLine());
        }
        if (status.starts_with(ControlWords::ready)) return True;
        if (status == ControlWords::inProcess)
          throw refusal(KeyscoutErrorCodes::ControlStatusInProcess,
                        u"Keyscout will be enabled as soon as the catalog number download has been "
                        u"completed.");
        throw refusal(KeyscoutErrorCodes::ControlStatusCorrupt,
                      u"Keyscout will not be available because the latest download contains "
                      u"invalid data.");
      },
      [&](const Error& error) -> Boolean {
        if (error.hasNumber(KeyscoutErrorCodes::ControlStatusInProcess) ||
            error.hasNumber(KeyscoutErrorCodes::ControlStatusCorrupt))
          throw Error{error};
        tracer_.report(procedure, error);
        return False;
      });
}

Boolean RWKeyscoutController::resetLastTableNumber() {
  static constexpr Procedure procedure = controllerProcedure(u"resetLastTableNumber");
  return tracer_.traced(procedure, [&]() -> Boolean {
    module_->lastTableNumber = -1;
    return True;
  });
}

void RWKeyscoutController::needToUpdate(std::int16_t days) {
  static constexpr Procedure procedure{u"keyscoutModule", u"needToUpdate", u"needToUpdate", 1};
  handlingFailure(
      [&] {
        const auto written = platform_.files.lastModified(pathInDirectory(KeyscoutIndexFile()));
        const auto age = platform_.clock.now() - written;
        if (days > 0 && age > std::chrono::days{days})
          throw refusal(KeyscoutErrorCodes::CatalogFilesOld, u"Keyscout data is not current.");
      },
      [&](const Error& error) {
        if (!error.hasNumber(KeyscoutErrorCodes::CatalogFilesOld)) tracer_.report(procedure, error);
        throw Error{error};
      });
}

}  // namespace keyscout
