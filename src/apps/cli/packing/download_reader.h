#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "apps/cli/files/input_file.h"
#include "apps/cli/packing/pack_error.h"
#include "base/text.h"

namespace keyscout {

/// One record of a download, in the bytes of its code page.
struct DownloadRecord {
  std::uint64_t line = 0;   // counted from 1
  std::string_view index;   // its 10 columns as they stand
  std::string_view number;  // trimmed, as is the brand
  std::string_view brand;
};

/// Reads a catalog download from its header to its last record. Everything fails with `PackError`.
class DownloadReader {
 public:
  /// Opens the file; a failure says that the work could not be begun.
  explicit DownloadReader(const std::filesystem::path& path);

  /// Reads the first line; fails where it is not the header of the format that lookups read.
  void readHeader();

  /// Reads the next record, valid until the next call; false at the end of the file. Fails at a
  /// record that a lookup could not read back.
  bool readRecord(DownloadRecord& record);

  /// A refusal of the download for the line read last.
  PackError refusal(const std::string& sentence) const { return refusalOf(path_, line_, sentence); }

  std::uint64_t bytesRead() const { return bytesRead_; }
  std::uint64_t size() const { return size_; }

 private:
  std::string_view readLine();
  void checkIndex(std::string_view index);

  std::filesystem::path path_;
  InputFile file_;
  std::uint64_t size_;
  std::uint64_t line_ = 0;
  std::uint64_t bytesRead_ = 0;
  String index_;
};

}  // namespace keyscout
