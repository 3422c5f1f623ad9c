#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace keyscout {

// The program's texts are UTF-8 on every system. A path made from plain characters would take them
// for the system's own encoding instead.

/// The path that `text`, in UTF-8, names.
inline std::filesystem::path pathNamed(std::string_view text) {
  return std::u8string{text.begin(), text.end()};
}

/// `path` in UTF-8, as messages show it.
inline std::string pathText(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace keyscout
