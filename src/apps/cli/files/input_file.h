#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>

#include "apps/cli/files/output_file.h"
#include "platform/sequential_file.h"

namespace keyscout {

/// A text file anywhere on the machine, for tools that are not confined to the data directory; a
/// pipe as well, and "-" is the program's own input. Fails with `std::runtime_error` where it
/// cannot be opened or read on, and where a line grows beyond any sense, so that a file that is no
/// text does not fill the memory.
class InputFile final : public SequentialFile {
 public:
  explicit InputFile(const std::filesystem::path& path);

  /// What is read from now on is written to `copy` as well, byte for byte.
  void copyTo(OutputFile& copy) { copy_ = &copy; }
  /// The bytes read so far, those of lines to come included.
  std::uint64_t bytesRead() const { return bytesRead_; }
  /// The size of the file, 0 where nobody knows it.
  std::uint64_t size() const { return size_; }

  /// True where `path` is the name of the program's own input.
  static bool isStandardInput(const std::filesystem::path& path) { return path == "-"; }

 private:
  struct Closer {
    void operator()(std::FILE* file) const;
  };

  std::size_t read(char* to, std::size_t room) override;

  std::unique_ptr<std::FILE, Closer> file_;
  OutputFile* copy_ = nullptr;
  std::uint64_t bytesRead_ = 0;
  std::uint64_t size_ = 0;
};

}  // namespace keyscout
