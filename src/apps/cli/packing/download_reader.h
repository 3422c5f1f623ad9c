#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>

#include "apps/cli/files/input_file.h"
#include "apps/cli/files/output_file.h"
#include "apps/cli/packing/line_origin.h"
#include "apps/cli/packing/pack_error.h"
#include "base/text.h"

namespace keyscout {

/// One record of a download, in the bytes of its code page.
struct DownloadRecord {
  std::uint64_t line = 0;   // of the download's origin
  std::string_view index;   // its 10 columns as they stand
  std::string_view number;  // trimmed, as is the brand
  std::string_view brand;
};

/// Reads a catalog download from its header to its last record. Everything fails with `PackError`.
class DownloadReader {
 public:
  /// Opens the file, "-" for the program's own input; a failure says that the work could not be
  /// begun. Refusals name the lines of `origin`. A line of UTF-8 is refused unless `acceptsUtf8`.
  DownloadReader(const std::filesystem::path& path, LineOrigin origin, bool acceptsUtf8);

  /// Writes all that is read to a file as well. To be called before anything is.
  void keepCopy(const std::filesystem::path& path);
  /// Ends the copy.
  void closeCopy();

  /// Reads the first line; fails where it is not the header of the format that lookups read.
  void readHeader();

  /// Reads the next record, valid until the next call; false at the end of the file. Fails at a
  /// record that a lookup could not read back.
  bool readRecord(DownloadRecord& record);

  /// A refusal of the download for the line read last.
  PackError refusal(const std::string& sentence) const {
    return origin_.refusal(origin_.lineOf(line_), sentence);
  }
  const LineOrigin& origin() const { return origin_; }

  std::uint64_t bytesRead() const { return file_.bytesRead(); }
  std::uint64_t size() const { return file_.size(); }

 private:
  std::string_view readLine();
  void checkBytes(std::string_view line) const;
  void checkIndex(std::string_view index);

  InputFile file_;
  LineOrigin origin_;
  bool acceptsUtf8_;
  std::optional<OutputFile> copy_;
  std::uint64_t line_ = 0;
  String index_;
};

}  // namespace keyscout
