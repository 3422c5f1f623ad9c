#pragma once

#include <filesystem>
#include <fstream>

#include "platform/sequential_file.h"

namespace keyscout {

/// A text file anywhere on the machine, for tools that are not confined to the data directory.
/// Fails with `std::runtime_error` where it cannot be opened or read on, and where a line grows
/// beyond any sense, so that a file that is no text does not fill the memory.
class InputFile final : public SequentialFile {
 public:
  explicit InputFile(const std::filesystem::path& path);

 private:
  std::size_t read(char* to, std::size_t room) override;

  std::filebuf file_;
};

}  // namespace keyscout
