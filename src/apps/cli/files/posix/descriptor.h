#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

namespace keyscout {

/// The failure of the system's latest call, which was about `file`.
inline std::filesystem::filesystem_error systemFailure(const std::filesystem::path& file) {
  return {"", file, std::error_code{errno, std::generic_category()}};
}

/// An open file of the system, closed with the object.
class Descriptor {
 public:
  Descriptor(const std::filesystem::path& file, int flags)
      : number_(::open(file.c_str(), flags | O_CLOEXEC, 0666)) {}
  ~Descriptor() {
    if (isOpen()) ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  bool isOpen() const { return number_ >= 0; }
  int number() const { return number_; }
  int release() { return std::exchange(number_, -1); }

 private:
  int number_;
};

}  // namespace keyscout
