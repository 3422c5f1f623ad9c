#pragma once

#include <filesystem>

#include "base/text.h"

namespace keyscout {

/// Tells a host through the control file what becomes of the catalog in its directory: from the
/// beginning of this object on that it is in process, and in the end that it is ready or, where
/// nobody called it that, corrupt. Where the process ends without either it stays in process. A
/// control file that a full disk leaves empty means corrupt as well.
class ControlFile {
 public:
  /// Fails with `std::runtime_error` where the file in `directory` cannot be written.
  explicit ControlFile(const std::filesystem::path& directory);
  ~ControlFile();
  ControlFile(const ControlFile&) = delete;
  ControlFile& operator=(const ControlFile&) = delete;

  void setReady();

 private:
  void write(StringView status) const;

  std::filesystem::path path_;
  bool isReady_ = false;
};

}  // namespace keyscout
