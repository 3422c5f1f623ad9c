#include "apps/cli/check/start_up_check.h"

#include <functional>

#include "apps/cli/directory/downloads.h"
#include "apps/cli/directory/wrong_header.h"
#include "apps/cli/files/path_text.h"
#include "apps/cli/host/catalog_host.h"
#include "apps/cli/packing/directory_hold.h"
#include "apps/cli/packing/publication.h"
#include "base/utf8.h"
#include "platform/local/silent_message_box.h"
#include "shared/data_format/directory_files.h"
#include "shared/data_format/record_columns.h"
#include "shared/error_codes.h"

namespace keyscout {
namespace {

template <class Check>
void checkFile(const CheckedDirectory& directory, CatalogHost& host, const std::string& file,
               Check&& check, const std::function<std::string(const Error&)>& more) {
  try {
    if (!check()) directory.error(file, 1, "cannot be read: " + host.takeFailure());
  } catch (const Error& refusal) {
    directory.error(file, 1, onOneLine(refusal.what()) + more(refusal));
  }
}

/// Whether there is somebody who will bring the catalog out of process.
std::string whoIsAtWork(const std::filesystem::path& path, const Error& refusal) {
  if (!refusal.hasNumber(KeyscoutErrorCodes::ControlStatusInProcess)) return {};
  if (DirectoryHold::isHeld(path)) return " A pack is at work here.";
  return isHalfPublished(path) ? " The pack that was at work here ended half-way; pack again." : "";
}

/// What stands in the first line of a download that is refused for it.
std::string whatStandsThere(const CheckedDirectory& directory, const std::string& download,
                            const Error& refusal) {
  if (refusal.hasNumber(KeyscoutErrorCodes::RequiredFilesMissing)) return {};
  constexpr std::size_t enough = 256;
  const auto file = directory.open(download);
  const std::string_view line = file->atEnd() ? std::string_view{} : file->readLine();
  return " The first line must be exactly " + toUtf8(downloadHeader) + ", but " +
         wrongHeader(line.substr(0, enough)) + '.';
}

void warnOfOtherDownloads(const CheckedDirectory& directory) {
  const auto found = downloadsIn(directory.names.path).found;
  for (std::size_t i = 1; i < found.size(); ++i)
    directory.warning(pathText(found[i]), 1,
                      "is a download as well, and older than " + pathText(found[0]) +
                          ", which is the one that counts; remove it");
}

}  // namespace

void checkStartUp(const CheckedDirectory& directory) {
  SilentMessageBox messageBox;
  CatalogHost host{directory.files, messageBox};
  RWKeyscoutController& controller = host.controller();
  host.configure(directory.names);

  checkFile(
      directory, host, toUtf8(DirectoryFiles::control),
      [&] { return controller.checkCatalogControlFile(); },
      [&](const Error& refusal) { return whoIsAtWork(directory.names.path, refusal); });
  const std::string& download = directory.names.downloadFile;
  if (download.empty()) {
    directory.error(
        pathText(directory.names.path), 1,
        "holds no catalog download: no file in it begins with the line " + toUtf8(downloadHeader));
    return;
  }
  checkFile(
      directory, host, download, [&] { return controller.checkDownloadVersion(); },
      [&](const Error& refusal) { return whatStandsThere(directory, download, refusal); });
  warnOfOtherDownloads(directory);
}

}  // namespace keyscout
