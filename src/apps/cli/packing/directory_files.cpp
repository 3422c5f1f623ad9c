#include "apps/cli/packing/directory_files.h"

#include <algorithm>

#include "apps/cli/files/path_text.h"
#include "apps/cli/packing/pack_error.h"
#include "base/letter_case.h"
#include "base/utf8.h"
#include "shared/data_format/directory_files.h"
#include "shared/keyscout_module.h"

namespace keyscout {
namespace {

bool isSameName(const std::string& a, const std::string& b) {
  return equalIgnoringCase(fromUtf8(a), fromUtf8(b));
}

bool isTableName(const std::string& name) {
  for (std::int16_t i = 0; i < keyscoutModule::catalogTableCapacity; ++i)
    if (isSameName(name, tableFile(static_cast<std::uint64_t>(i)))) return true;
  return false;
}

/// `role` begins the sentence of a refusal.
void checkName(const std::string& role, const std::string& name) {
  const auto refusal = [&](const std::string& sentence) {
    return PackError(role + " \"" + name + "\" " + sentence, ExitStatus::unusable);
  };
  // A host puts the name behind the directory, where a backslash is a separator on every system.
  if (name.empty() || name == "." || name == ".." || name.find_first_of("/\\") != name.npos)
    throw refusal("must be the plain name of a file; give it another one.");
  for (const StringView taken : {DirectoryFiles::control, DirectoryFiles::brands,
                                 DirectoryFiles::brandIndex, stagingFolder, packLock})
    if (equalIgnoringCase(fromUtf8(name), taken))
      throw refusal("has the name of another file in the directory; give it another one.");
  if (isTableName(name)) throw refusal("has the name of a catalog table; give it another one.");
}

}  // namespace

std::string tableFile(std::uint64_t position) {
  return std::to_string(position) + toUtf8(DirectoryFiles::tableExtension);
}

void checkNames(const std::filesystem::path& download, const std::filesystem::path& index) {
  const std::string indexName = pathText(index);
  const std::string downloadName = pathText(download);
  checkName("The download", downloadName);
  checkName("The index", indexName);
  if (isSameName(downloadName, indexName))
    throw PackError("The index and the download are both named \"" + indexName +
                        "\"; give the index another name.",
                    ExitStatus::unusable);
}

}  // namespace keyscout
