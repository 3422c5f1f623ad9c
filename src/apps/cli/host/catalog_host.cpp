#include "apps/cli/host/catalog_host.h"

#include <stdexcept>

#include "apps/cli/files/path_text.h"
#include "base/utf8.h"
#include "shared/error_codes.h"

namespace keyscout {

CatalogHost::CatalogHost(Files& files, MessageBox& messageBox)
    : platform_(files, messageBox, trace_) {}

void CatalogHost::configure(const DataDirectory& directory) {
  controller_.setKeyscoutDirectory(fromUtf8(pathText(directory.path)));
  controller_.setKeyscoutIndexFile(fromUtf8(directory.indexFile));
  // A host always names a download; that there is none is then for the controller to say.
  const std::string& download = directory.downloadFile;
  controller_.setCatalogNumbersDownloadFile(download.empty() ? u"download.txt"
                                                             : fromUtf8(download));
}

void CatalogHost::start(const DataDirectory& directory) {
  const std::string path = pathText(directory.path);
  const auto refuse = [&](std::string why) {
    // What lacks a file may be a catalog whose files change places at this moment.
    try {
      static_cast<void>(controller_.checkCatalogControlFile());
    } catch (const Error& status) {
      if (status.hasNumber(KeyscoutErrorCodes::ControlStatusInProcess)) why = status.what();
    }
    throw std::runtime_error(onOneLine(why) + "\n  To see what is wrong: keyscout check " + path);
  };
  if (!std::filesystem::is_directory(directory.path))
    throw std::runtime_error(path + " is not a directory.");

  configure(directory);
  bool isReady = false;
  try {
    isReady = static_cast<bool>(controller_.init());
  } catch (const Error& refusal) {
    refuse(refusal.what());
  }
  if (!isReady) refuse("The catalog in " + path + " cannot be loaded: " + takeFailure() + '.');
  controller_.setKeyscoutEnabled(True);
}

std::string onOneLine(std::string_view text) {
  std::string line;
  for (const char character : text) {
    if (character == '\r') continue;
    line += character == '\n' ? ' ' : character;
  }
  return line;
}

}  // namespace keyscout
