#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "base/text.h"

namespace keyscout {

/// What a directory is made in. It is there while a pack runs, or where one was killed.
inline constexpr StringView stagingFolder = u"keyscout-pack.tmp";

/// The name of the table at `position` in the index, counted from 0.
std::string tableFile(std::uint64_t position);

/// Fails with `PackError` where a host could not find the index or the download under its name, or
/// where either name is that of another file in the directory; letter case makes no difference.
void checkNames(const std::filesystem::path& download, const std::filesystem::path& indexName);

}  // namespace keyscout
