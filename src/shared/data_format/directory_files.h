#pragma once

#include "base/text.h"

/// The files of a data directory, by name. Index and download may be named otherwise by the host.
namespace keyscout::DirectoryFiles {
inline constexpr StringView control = u"catcontrol.txt";
inline constexpr StringView brands = u"brandinfo.txt";
/// Optional; `pack` writes it.
inline constexpr StringView brandIndex = u"brandindex.txt";
inline constexpr StringView usualIndex = u"catindex.txt";
/// What follows the table's designation in the name of a catalog table file.
inline constexpr StringView tableExtension = u".txt";
}  // namespace keyscout::DirectoryFiles
