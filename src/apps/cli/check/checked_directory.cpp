#include "apps/cli/check/checked_directory.h"

#include "apps/cli/files/path_text.h"
#include "apps/cli/sentences/in_quotes.h"
#include "base/utf8.h"

namespace keyscout {

String CheckedDirectory::pathTo(std::string_view name) const {
  return fromUtf8(pathText(names.path)) + u'\\' + fromUtf8(name);
}

std::unique_ptr<SequentialFile> CheckedDirectory::open(std::string_view name) const {
  return files.open(pathTo(name));
}

std::uint64_t CheckedDirectory::sizeOf(std::string_view name) const {
  std::error_code failure;
  const auto size = std::filesystem::file_size(names.path / pathNamed(name), failure);
  return failure ? 0 : size;
}

std::string CheckedDirectory::inQuotes(std::string_view bytes) const {
  return keyscout::inQuotes(bytes, codePage);
}

}  // namespace keyscout
