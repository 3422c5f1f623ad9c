#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace keyscout {

/// The files of a data directory, by name.
namespace DirectoryFiles {
inline constexpr const char* control = "catcontrol.txt";
inline constexpr const char* brands = "brandinfo.txt";
/// What a directory is made in. It is there while a pack runs, or where one was killed.
inline constexpr const char* staging = "keyscout-pack.tmp";

/// The table at `position` in the index, counted from 0.
std::string table(std::uint64_t position);
}  // namespace DirectoryFiles

/// Fails with `PackError` where a host could not find the index or the download under its name, or
/// where either name is that of another file in the directory; letter case makes no difference.
void checkNames(const std::filesystem::path& download, const std::filesystem::path& indexName);

}  // namespace keyscout
