#include "apps/cli/check/start_up_check.h"

#include "apps/cli/files/path_text.h"
#include "apps/cli/host/catalog_host.h"
#include "base/utf8.h"
#include "platform/local/silent_message_box.h"
#include "shared/data_format/directory_files.h"
#include "shared/data_format/record_columns.h"

namespace keyscout {
namespace {

template <class Check>
void checkFile(const CheckedDirectory& directory, CatalogHost& host, const std::string& file,
               Check&& check) {
  try {
    if (!check()) directory.error(file, 1, "cannot be read: " + host.takeFailure());
  } catch (const Error& refusal) {
    directory.error(file, 1, onOneLine(refusal.what()));
  }
}

}  // namespace

void checkStartUp(const CheckedDirectory& directory) {
  SilentMessageBox messageBox;
  CatalogHost host{directory.files, messageBox};
  RWKeyscoutController& controller = host.controller();
  host.configure(directory.names);

  checkFile(directory, host, toUtf8(DirectoryFiles::control),
            [&] { return controller.checkCatalogControlFile(); });
  const std::string& download = directory.names.downloadFile;
  if (download.empty()) {
    directory.error(
        pathText(directory.names.path), 1,
        "holds no catalog download: no file in it begins with the line " + toUtf8(downloadHeader));
    return;
  }
  checkFile(directory, host, download, [&] { return controller.checkDownloadVersion(); });
}

}  // namespace keyscout
