#include "apps/cli/packing/control_file.h"

#include <exception>
#include <system_error>

#include "apps/cli/files/output_file.h"
#include "apps/cli/packing/directory_files.h"

namespace keyscout {

ControlFile::ControlFile(const std::filesystem::path& directory)
    : path_(directory / DirectoryFiles::control) {
  write("INPROCESS\r\n");
}

ControlFile::~ControlFile() {
  if (isReady_) return;
  try {
    write("CORRUPT\r\n");
  } catch (const std::exception&) {
    // What stands there now says in process or nothing, and a host uses neither.
  }
}

void ControlFile::setReady() {
  write("READY\r\n");
  isReady_ = true;
}

void ControlFile::write(const char* status) const {
  OutputFile file{path_};
  file.write(status);
  file.close();
}

}  // namespace keyscout
