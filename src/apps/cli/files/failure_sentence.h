#pragma once

#include <exception>
#include <filesystem>
#include <new>
#include <string>
#include <system_error>

#include "apps/cli/files/path_text.h"

namespace keyscout {

/// What is wrong, for a person: without the words that the language's own failures add.
inline std::string sentenceOf(const std::exception& failure) {
  if (dynamic_cast<const std::bad_alloc*>(&failure)) return "There is not enough memory.";
  if (const auto* file = dynamic_cast<const std::filesystem::filesystem_error*>(&failure))
    return pathText(file->path1()) + ": " + file->code().message();
  if (const auto* system = dynamic_cast<const std::system_error*>(&failure))
    return system->code().message();
  return failure.what();
}

}  // namespace keyscout
