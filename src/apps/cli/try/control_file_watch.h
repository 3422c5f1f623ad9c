#pragma once

#include <cstdint>
#include <filesystem>

namespace keyscout {

/// Tells a host when a catalog has been published into the directory that it serves: the control
/// file is the first and the last that changes.
class ControlFileWatch {
 public:
  explicit ControlFileWatch(const std::filesystem::path& directory);

  /// True once after the control file was written or replaced, or came or went.
  bool hasChanged();

 private:
  struct Mark {
    std::filesystem::file_time_type written{};
    std::uintmax_t size = 0;
    bool operator==(const Mark&) const = default;
  };
  Mark mark() const;

  std::filesystem::path file_;
  Mark last_;
};

}  // namespace keyscout
