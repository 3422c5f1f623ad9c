#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string_view>

#include "apps/cli/packing/line_origin.h"

namespace keyscout {

/// Told now and then that `done` of `total` parts of a step are done; a `total` of 0 means that
/// nobody knows. It may throw to end the work.
using PackProgress =
    std::function<void(std::string_view step, std::uint64_t done, std::uint64_t total)>;

struct MadeDownload {
  /// Which line of the list became which of the download.
  LineOrigin origin;
  /// Records of the list that are not in the download.
  std::uint64_t dropped = 0;
};

/// Makes a download of a list in another form, which it has opened already.
class DownloadMaker {
 public:
  virtual ~DownloadMaker() = default;

  /// Writes the download to `file`; `scratch` is a folder for anything else. Fails with `PackError`
  /// where the list is at fault.
  virtual MadeDownload make(const std::filesystem::path& file, const std::filesystem::path& scratch,
                            const PackProgress& progress) = 0;
};

}  // namespace keyscout
