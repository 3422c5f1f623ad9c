#include "apps/cli/packing/former_catalog.h"

#include <algorithm>
#include <string>
#include <system_error>

#include "apps/cli/directory/downloads.h"
#include "apps/cli/files/input_file.h"
#include "apps/cli/packing/directory_files.h"
#include "apps/cli/packing/pack_error.h"
#include "base/utf8.h"
#include "platform/local/native_code_page.h"
#include "shared/data_format/directory_files.h"
#include "shared/data_format/index_line.h"
#include "shared/keyscout_module.h"

namespace keyscout {
namespace {

namespace fs = std::filesystem;

bool isTableNumber(StringView text) {
  return !text.empty() && text.find_first_not_of(u"0123456789") == text.npos;
}

/// True where a line could be one of an index: a table's number, and as many columns as a range
/// takes.
bool isIndexLine(std::string_view bytes) {
  return bytes.size() >= IndexColumns::lastEntry.first &&
         bytes.size() <= IndexColumns::lineLength &&
         isTableNumber(parseIndexLine(nativeCodePage().decode(bytes)).tableNumber);
}

bool looksLikeIndex(const fs::path& file) try {
  std::error_code unknown;
  if (!fs::is_regular_file(file, unknown)) return false;
  InputFile lines{file};
  return isIndexLine(lines.readLine());
} catch (const std::runtime_error&) {
  return false;
}

bool isPacksOwn(const fs::path& name) { return name == stagingFolder || name == packLock; }

bool isSameFile(const fs::path& a, const fs::path& b) {
  std::error_code noSuchFile;
  return fs::equivalent(a, b, noSuchFile);
}

/// The files of `directory` that are not there for the sake of packing.
std::vector<fs::path> filesIn(const fs::path& directory) {
  std::vector<fs::path> names;
  for (const auto& entry : fs::directory_iterator{directory})
    if (!isPacksOwn(entry.path().filename())) names.push_back(entry.path().filename());
  return names;
}

}  // namespace

FormerCatalog::FormerCatalog(const fs::path& directory, const fs::path& indexName,
                             const fs::path& incoming, bool force)
    : directory_(directory), force_(force) {
  if (!fs::exists(directory)) return;
  const std::vector<fs::path> files = filesIn(directory);
  isThere_ = std::ranges::find(files, fs::path{DirectoryFiles::control}) != files.end();
  if (isThere_) {
    own_ = {DirectoryFiles::control, DirectoryFiles::brands, DirectoryFiles::brandIndex,
            DirectoryFiles::usualIndex};
    findIndex(indexName);
    findDownload(incoming);
  }
  const auto isIncoming = [&](const fs::path& name) {
    return isSameFile(directory / name, incoming);
  };
  const auto own = std::ranges::find_if(files, isIncoming);
  if (own != files.end()) replaceable_.insert(*own);
  if (!isThere_ && !force && !std::ranges::all_of(files, isIncoming))
    throw PackError(pathText(directory) +
                        " holds other files and no catalog; name another directory, or give "
                        "--force to pack into this one.",
                    ExitStatus::unusable);
}

void FormerCatalog::findIndex(const fs::path& indexName) {
  for (const fs::path& name : {indexName, fs::path{DirectoryFiles::usualIndex}})
    if (looksLikeIndex(directory_ / name)) return takeIndex(name);
  for (const fs::path& name : filesIn(directory_))
    if (looksLikeIndex(directory_ / name)) return takeIndex(name);
}

/// A lookup opens its first table by the number in the index and those after it by their positions.
void FormerCatalog::takeIndex(const fs::path& name) {
  own_.insert(name);
  InputFile lines{directory_ / name};
  for (std::uint64_t position = 0;
       !lines.atEnd() && position < keyscoutModule::catalogTableCapacity;) {
    const std::string_view line = lines.readLine();
    if (trimmed(line).empty()) continue;
    const String number = parseIndexLine(nativeCodePage().decode(line)).tableNumber;
    if (isTableNumber(number)) own_.insert(number + String{DirectoryFiles::tableExtension});
    own_.insert(tableFile(position++));
  }
}

void FormerCatalog::findDownload(const fs::path& incoming) {
  const std::vector<fs::path> found = downloadsIn(directory_).found;
  replaceable_.insert(found.begin(), found.end());
  const auto former = std::ranges::find_if(
      found, [&](const fs::path& name) { return !isSameFile(directory_ / name, incoming); });
  if (former != found.end()) own_.insert(*former);
}

void FormerCatalog::makeWayFor(const Names& names) const {
  for (const fs::path& name : names) {
    const fs::file_status there = fs::symlink_status(directory_ / name);
    if (!fs::exists(there)) continue;
    const std::string path = pathText(directory_ / name);
    if (fs::is_directory(there))
      throw PackError(path + " is a directory where a file has to be; move it away.",
                      ExitStatus::unusable);
    if (!force_ && !own_.contains(name) && !replaceable_.contains(name))
      throw PackError(path +
                          " is in the way and does not belong to the catalog; move it away, or "
                          "give --force to replace it.",
                      ExitStatus::unusable);
  }
}

std::vector<fs::path> FormerCatalog::without(const Names& names) const {
  std::vector<fs::path> left;
  for (const fs::path& name : own_) {
    const fs::file_status there = fs::symlink_status(directory_ / name);
    if (!names.contains(name) && fs::exists(there) && !fs::is_directory(there))
      left.push_back(name);
  }
  return left;
}

}  // namespace keyscout
