#include "apps/cli/files/output_file.h"

#include <cerrno>
#include <stdexcept>
#include <string>
#include <system_error>

#include "apps/cli/files/path_text.h"

namespace keyscout {

OutputFile::OutputFile(const std::filesystem::path& path)
    : path_(path), stream_(path, std::ios::binary | std::ios::trunc) {
  if (!stream_) fail();
}

void OutputFile::close() {
  stream_.close();
  if (!stream_) fail();
}

/// The stream only knows that it failed; the reason, mostly a full disk, is what the system left
/// behind.
void OutputFile::fail() const {
  const int reason = errno;
  std::string message = pathText(path_) + " cannot be written";
  if (reason != 0) message += ": " + std::generic_category().message(reason);
  throw std::runtime_error(message);
}

}  // namespace keyscout
