#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "apps/cli/files/output_file.h"

namespace keyscout {

/// What an external sort puts in order: bytes to sort by, and bytes that go along with them, at
/// most 65535 of each.
struct SortRecord {
  std::string_view key;
  std::string_view payload;
};

/// A record as it stands in memory and in a file of records: the two lengths, then the bytes.
namespace SortLayout {
inline constexpr std::size_t headSize = 4;
inline std::size_t sizeOf(const SortRecord& record) {
  return headSize + record.key.size() + record.payload.size();
}
void append(const SortRecord& record, std::vector<char>& bytes);
/// How many bytes follow the head.
std::size_t bodySize(const char* head);
/// The record whose head is at `head`, its body right behind.
SortRecord at(const char* head);
}  // namespace SortLayout

/// Reads a file of records from the top.
class RunReader {
 public:
  /// Keeps up to `memory` bytes of the file at hand.
  RunReader(std::filesystem::path path, std::size_t memory);

  /// Goes to the first or next record; false at the end of the file.
  bool advance();
  /// The record gone to, valid until the next `advance`.
  const SortRecord& record() const { return record_; }

 private:
  void read(std::size_t from, std::size_t count);

  std::filesystem::path path_;
  std::vector<char> ahead_;
  std::filebuf file_;
  std::vector<char> bytes_;
  SortRecord record_;
};

}  // namespace keyscout
