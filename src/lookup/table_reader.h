#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "base/code_page.h"
#include "base/text.h"
#include "lookup/key_order.h"
#include "platform/random_access_file.h"
#include "platform/sequential_file.h"

namespace keyscout {

/// Reads a catalog table line by line, from its first line or from the one that a key leads to.
///
/// The numbers of a table ascend, so the way to a key is found by looking at a few small pieces of
/// the file, where the key should stand by the numbers around it or in the middle of what is left,
/// and only the last stretch is read line by line.
/// What is found is what reading line by line from the top would find: the first line whose number
/// is not below the key, with equal numbers the first of them, and where all numbers are below it
/// the table's last line. This also holds where
/// - lines without a number, short or blank, stand anywhere;
/// - one number, anywhere, is below its place: no line by itself says that the key lies behind it;
/// - the table fits the last stretch, or a piece that is looked at is out of order, in itself or
///   against the pieces before it: such a table is read from its top;
/// - the file shrinks or grows meanwhile.
/// A number above its place would end a reading from the top, at that place, for every key between
/// the numbers around it and itself. Here it does so where it is met. Where it is not, the key
/// leads to the numbers around the key, as if it were not there.
class TableReader final : public SequentialFile {
 public:
  /// Reads with the memory in `kept` and puts it back at the end, so that a table takes none of its
  /// own. `codePage` must outlive the object.
  TableReader(std::unique_ptr<RandomAccessFile> file, const CodePage& codePage, Buffer& kept);
  ~TableReader() override { kept_ = releaseBuffer(); }

  /// Where the numbers of a table are said to begin and to end. A wrong word costs time alone.
  struct Range {
    StringView first;
    StringView last;
  };

  /// Where nothing has been read yet: the line that `key` leads to, as `readLine` gives it; those
  /// behind it follow. Absent for a table without a line. Fails as `readLine` does.
  std::optional<std::string_view> readFirstFor(StringView key, const Range& range);

 private:
  /// A number that does not stand in the buffer.
  class Number {
   public:
    Number() = default;
    /// What has no byte of its own stands behind all that have one.
    explicit Number(StringView text);
    void keep(std::string_view columns);
    std::string_view text() const { return {bytes_.data(), size_}; }
    std::string_view textOr(const Number& other) const {
      return size_ != 0 ? text() : other.text();
    }

   private:
    std::array<char, 60> bytes_{};
    std::size_t size_ = 0;
  };

  /// The part of the file that the line is looked for in: it begins with a line whose number is
  /// below the key, or at the top, and ends before one whose number is not, or at the file's end.
  struct Stretch {
    std::uint64_t begin = 0;
    std::uint64_t end = 0;
    Number first;
    Number behind;

    std::uint64_t size() const { return end - begin; }
    /// Where a piece of so many bytes begins whose middle stands at `share` of the way.
    std::uint64_t placeOf(std::size_t piece, double share) const;
  };

  enum class Finding { narrower, found, undecided, outOfOrder };

  std::size_t read(char* to, std::size_t room) override;
  void moveTo(std::uint64_t offset, std::size_t firstBlock);
  void approach(const KeyOrder& order, StringView key, const Range& range, std::uint64_t size);
  Finding look(const KeyOrder& key, Stretch& stretch, std::uint64_t place, std::size_t pieceSize);

  std::unique_ptr<RandomAccessFile> file_;
  const CodePage& codePage_;
  Buffer& kept_;
  std::uint64_t offset_ = 0;  // of the bytes to be read next
  std::size_t nextBlock_;     // how many to read
};

}  // namespace keyscout
