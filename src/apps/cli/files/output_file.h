#pragma once

#include <filesystem>
#include <fstream>
#include <string_view>

namespace keyscout {

/// A file being written anew, byte for byte. No failure goes unnoticed: everything fails with
/// `std::runtime_error`, which names the file, where the bytes did not all get there. Without
/// `close` the file counts as unfinished.
class OutputFile {
 public:
  explicit OutputFile(const std::filesystem::path& path);

  void write(std::string_view bytes) {
    if (!stream_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()))) fail();
  }
  void close();

 private:
  [[noreturn]] void fail() const;

  std::filesystem::path path_;
  std::ofstream stream_;
};

}  // namespace keyscout
