#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "apps/cli/check/finding.h"
#include "apps/cli/directory/data_directory.h"
#include "base/code_page.h"
#include "platform/files.h"

namespace keyscout {

/// Told now and then that `done` of `total` bytes of a step are done. It may throw to end the work.
using CheckProgress =
    std::function<void(std::string_view step, std::uint64_t done, std::uint64_t total)>;

/// What the checks of all files share: the directory being read and where findings go.
struct CheckedDirectory {
  Files& files;
  DataDirectory names;
  FindingReport report;
  CheckProgress progress;
  const CodePage& codePage;

  /// The file `name` of the directory as `files` takes it.
  String pathTo(std::string_view name) const;
  /// Opens the file `name` of the directory; fails as `Files::open` does.
  std::unique_ptr<SequentialFile> open(std::string_view name) const;
  bool exists(std::string_view name) const { return files.exists(pathTo(name)); }
  /// Fails as `Files::stamp` does.
  FileStamp stamp(std::string_view name) const { return files.stamp(pathTo(name)); }
  /// The size of the file `name`, 0 where it has none.
  std::uint64_t sizeOf(std::string_view name) const;

  void error(const std::string& file, std::uint64_t line, const std::string& sentence) const {
    report({file, line, Severity::error, sentence});
  }
  void warning(const std::string& file, std::uint64_t line, const std::string& sentence) const {
    report({file, line, Severity::warning, sentence});
  }

  /// A text of the files as a sentence quotes it.
  std::string inQuotes(std::string_view bytes) const;
};

}  // namespace keyscout
