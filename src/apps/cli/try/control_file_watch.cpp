#include "apps/cli/try/control_file_watch.h"

#include <system_error>
#include <utility>

#include "shared/data_format/directory_files.h"

namespace keyscout {

ControlFileWatch::ControlFileWatch(const std::filesystem::path& directory)
    : file_(directory / DirectoryFiles::control), last_(mark()) {}

bool ControlFileWatch::hasChanged() {
  const Mark now = mark();
  return std::exchange(last_, now) != now;
}

/// Of a file that is not there, what no file has.
ControlFileWatch::Mark ControlFileWatch::mark() const {
  std::error_code missing;
  return {std::filesystem::last_write_time(file_, missing),
          std::filesystem::file_size(file_, missing)};
}

}  // namespace keyscout
