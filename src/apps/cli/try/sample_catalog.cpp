#include "apps/cli/try/sample_catalog.h"

#include <sys/auxv.h>

#include <bit>
#include <system_error>

#include "shared/data_format/directory_files.h"

namespace keyscout {
namespace {

/// The folder of the running program's file; empty where that cannot be told.
std::filesystem::path programFolder() {
  // The name that the program was started by: unlike /proc it is there in every root.
  const auto* const name = std::bit_cast<const char*>(::getauxval(AT_EXECFN));
  if (!name) return {};
  std::error_code unknown;
  return std::filesystem::canonical(name, unknown).parent_path();
}

}  // namespace

std::filesystem::path sampleCatalog() {
  const std::filesystem::path folder = programFolder();
  if (folder.empty()) return {};
  for (const char* const place : {KEYSCOUT_INSTALLED_SAMPLE, KEYSCOUT_BUILT_SAMPLE}) {
    std::filesystem::path catalog = (folder / place).lexically_normal();
    std::error_code missing;
    if (std::filesystem::exists(catalog / DirectoryFiles::control, missing)) return catalog;
  }
  return {};
}

}  // namespace keyscout
