#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace keyscout::fuzz {

/// A folder on the disk for what can only work on one, empty at first and gone with the object.
class WrittenFolder {
 public:
  WrittenFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "keyscout-fuzz-XXXXXX").string();
    if (!mkdtemp(name.data())) std::abort();
    path_ = name;
  }
  ~WrittenFolder() { std::filesystem::remove_all(path_); }
  WrittenFolder(const WrittenFolder&) = delete;
  WrittenFolder& operator=(const WrittenFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  void write(const std::string& name, std::string_view bytes) const {
    std::ofstream{path_ / name, std::ios::binary} << bytes;
  }
  std::string read(const std::string& name) const {
    std::ifstream file{path_ / name, std::ios::binary};
    return {std::istreambuf_iterator<char>{file}, {}};
  }

 private:
  std::filesystem::path path_;
};

}  // namespace keyscout::fuzz
