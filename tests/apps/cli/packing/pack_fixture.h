#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "apps/cli/packing/pack_catalog.h"
#include "support/temporary_folder.h"

namespace keyscout::test {

namespace fs = std::filesystem;

inline const std::string header = "FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]\r\n";

inline std::string padded(std::string text, std::size_t width) {
  text.resize(std::max(width, text.size()), ' ');
  return text;
}

/// A record without its line end.
inline std::string record(int index, const std::string& number,
                          const std::string& brand = "BRAND") {
  return padded(std::to_string(index), 10) + padded(number, 60) + brand;
}

inline std::string numbered(const std::string& start, std::uint32_t number) {
  return start + std::to_string(number);
}

inline std::string readFile(const fs::path& path) {
  std::ifstream file{path, std::ios::binary};
  return {std::istreambuf_iterator<char>{file}, {}};
}

inline void writeFile(const fs::path& path, const std::string& bytes) {
  std::ofstream{path, std::ios::binary} << bytes;
}

inline std::string filler(int count) {
  std::string records;
  for (int i = 0; i < count; ++i)
    records += record(i, numbered("N", static_cast<std::uint32_t>(1000 + i))) + "\r\n";
  return records;
}

using Snapshot = std::map<std::string, std::string>;

/// All files of a directory by name; a folder counts as a file without bytes.
inline Snapshot snapshotOf(const fs::path& directory) {
  Snapshot files;
  for (const auto& entry : fs::directory_iterator(directory))
    files[entry.path().filename().string()] = entry.is_directory() ? "" : readFile(entry.path());
  return files;
}

inline std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t from = 0;
  for (std::size_t end; (end = text.find("\r\n", from)) != text.npos; from = end + 2)
    lines.push_back(text.substr(from, end - from));
  EXPECT_EQ(from, text.size()) << "the last line has no end";
  return lines;
}

/// A folder of its own, with a download `list.txt` and a data directory `data` in it.
class PackTest : public testing::Test {
 protected:
  PackOptions options(const std::string& bytes) const {
    PackOptions result;
    result.download = root_ / "list.txt";
    result.directory = directory();
    writeFile(result.download, bytes);
    return result;
  }
  PackSummary pack(const std::string& bytes) const { return packCatalog(options(bytes)); }

  fs::path directory() const { return root_ / "data"; }
  std::string fileOf(const std::string& name) const { return readFile(directory() / name); }

  TemporaryFolder folder_;
  const fs::path& root_ = folder_.path();
};

/// The error that packing fails with; without one the test fails.
inline PackError failureOf(const PackOptions& options, const PackProgress& progress = {}) {
  try {
    packCatalog(options, progress);
  } catch (const PackError& failure) {
    return failure;
  }
  ADD_FAILURE() << "packed";
  return {"", ExitStatus::success};
}

}  // namespace keyscout::test
