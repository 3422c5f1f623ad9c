#include "apps/cli/packing/control_file.h"

#include <exception>
#include <system_error>

#include "apps/cli/files/output_file.h"
#include "base/utf8.h"
#include "shared/data_format/control_words.h"
#include "shared/data_format/directory_files.h"

namespace keyscout {

ControlFile::ControlFile(const std::filesystem::path& directory)
    : path_(directory / DirectoryFiles::control) {
  write(ControlWords::inProcess);
}

ControlFile::~ControlFile() {
  if (isReady_) return;
  try {
    write(ControlWords::corrupt);
  } catch (const std::exception&) {
    // What stands there now says in process or nothing, and a host uses neither.
  }
}

void ControlFile::setReady() {
  write(ControlWords::ready);
  isReady_ = true;
}

void ControlFile::write(StringView status) const {
  OutputFile file{path_};
  file.write(toUtf8(status) + "\r\n");
  file.close();
}

}  // namespace keyscout
