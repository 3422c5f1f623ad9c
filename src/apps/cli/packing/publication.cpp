#include "apps/cli/packing/publication.h"

#include <stdexcept>
#include <string>
#include <system_error>

#include "apps/cli/files/durable_files.h"
#include "apps/cli/files/input_file.h"
#include "apps/cli/files/output_file.h"
#include "apps/cli/files/path_text.h"
#include "apps/cli/packing/directory_files.h"
#include "base/utf8.h"
#include "shared/data_format/control_words.h"
#include "shared/data_format/directory_files.h"

namespace keyscout {
namespace {

namespace fs = std::filesystem;

/// What stands in the staging folder of a catalog that is whole and on the disk.
class SealedStaging {
 public:
  explicit SealedStaging(fs::path root) : root_(std::move(root)) {}

  /// The new files. The folder has this name only when all that belongs to it is on the disk.
  fs::path catalog() const { return root_ / "complete"; }
  /// The control file while the files change places.
  fs::path inProcess() const { return root_ / "inprocess"; }
  /// The names of the files to be taken away, one a line; gone when they are.
  fs::path leftOver() const { return root_ / "leftover"; }

 private:
  fs::path root_;
};

std::string controlText(StringView word) { return toUtf8(word) + "\r\n"; }

void write(const fs::path& path, const std::string& text) {
  OutputFile file{path};
  file.write(text);
  file.close();
}

std::vector<fs::path> filesIn(const fs::path& folder) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator{folder}) files.push_back(entry.path());
  return files;
}

void seal(const StagingFolder& staging, const std::vector<fs::path>& leftOver) {
  const SealedStaging sealed{staging.root()};
  std::string names;
  for (const auto& name : leftOver) names += pathText(name) + '\n';
  write(sealed.leftOver(), names);
  write(sealed.inProcess(), controlText(ControlWords::inProcess));
  write(staging.catalog() / DirectoryFiles::control, controlText(ControlWords::ready));

  syncFile(sealed.leftOver());
  syncFile(sealed.inProcess());
  for (const auto& file : filesIn(staging.catalog())) syncFile(file);
  syncDirectory(staging.catalog());
  fs::rename(staging.catalog(), sealed.catalog());
  syncDirectory(staging.root());
}

void removeLeftOver(const SealedStaging& sealed, const fs::path& directory) {
  if (!fs::exists(sealed.leftOver())) return;
  {
    // Closed before it goes: Windows removes no open file.
    InputFile names{sealed.leftOver()};
    while (!names.atEnd()) fs::remove(directory / pathNamed(names.readLine()));
  }
  // A name that differs in letter case only may be that of a new file; it must not go twice.
  fs::remove(sealed.leftOver());
}

/// From in process to ready; the same wherever it was left before.
void exchangeFiles(const fs::path& root, const fs::path& directory) {
  const SealedStaging sealed{root};
  const fs::path ready = sealed.catalog() / DirectoryFiles::control;
  removeLeftOver(sealed, directory);
  for (const auto& file : filesIn(sealed.catalog()))
    if (file != ready) replaceFile(file, directory / file.filename());
  syncDirectory(directory);
  replaceFile(ready, directory / DirectoryFiles::control);
  syncDirectory(directory);
}

bool saysInProcess(const fs::path& control) try {
  InputFile file{control};
  return file.readLine() == toUtf8(ControlWords::inProcess);
} catch (const std::runtime_error&) {
  return false;
}

}  // namespace

void publish(StagingFolder& staging, const fs::path& directory,
             const std::vector<fs::path>& leftOver) {
  seal(staging, leftOver);
  staging.keep();
  replaceFile(SealedStaging{staging.root()}.inProcess(), directory / DirectoryFiles::control);
  syncDirectory(directory);
  exchangeFiles(staging.root(), directory);
  // The catalog is in place, and the next pack removes what is left.
  std::error_code ignored;
  fs::remove_all(staging.root(), ignored);
}

bool isHalfPublished(const fs::path& directory) {
  std::error_code unknown;
  return fs::exists(SealedStaging{directory / stagingFolder}.catalog(), unknown) &&
         saysInProcess(directory / DirectoryFiles::control);
}

void finishPublication(const fs::path& directory) {
  if (!isHalfPublished(directory)) return;
  exchangeFiles(directory / stagingFolder, directory);
  fs::remove_all(directory / stagingFolder);
}

}  // namespace keyscout
