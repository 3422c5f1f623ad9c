#include "support/temporary_folder.h"

#include <atomic>
#include <random>
#include <string>
#include <system_error>

#include "base/utf8.h"

namespace keyscout::test {

TemporaryFolder::TemporaryFolder() {
  static std::atomic<int> next{0};
  static const auto process = std::random_device{}();
  path_ = std::filesystem::temp_directory_path() /
          ("keyscout-test-" + std::to_string(process) + "-" + std::to_string(next++));
  std::filesystem::create_directories(path_);
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

String TemporaryFolder::hostPath() const { return fromUtf8(path_.string()) + u"\\"; }

}  // namespace keyscout::test
