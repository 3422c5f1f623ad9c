#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "base/text.h"

namespace keyscout {

/// What a directory is made in. It is there while a pack runs, or where one was killed.
inline constexpr StringView stagingFolder = u"keyscout-pack.tmp";
/// What the pack that is at work in the directory holds; a file that nobody holds means nothing.
inline constexpr StringView packLock = u"keyscout-pack.lock";
/// The download's name where what it is made of has none.
inline constexpr StringView usualDownload = u"download.txt";

/// The name of the table at `position` in the index, counted from 0.
std::string tableFile(std::uint64_t position);

/// Fails with `PackError` where a host could not find the index or the download under its name, or
/// where either name is that of another file in the directory; letter case makes no difference.
void checkNames(const std::filesystem::path& downloadName, const std::filesystem::path& indexName);

}  // namespace keyscout
