#pragma once

#include <filesystem>
#include <string>

namespace keyscout {

/// `path` in UTF-8, as messages show it.
inline std::string pathText(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace keyscout
