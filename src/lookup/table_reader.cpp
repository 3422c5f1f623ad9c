#include "lookup/table_reader.h"

#include <algorithm>
#include <utility>

#include "shared/data_format/catalog_line.h"

namespace keyscout {
namespace {

// Some six lines, of which a decision needs two.
constexpr std::size_t pieceSize = 512;
// Reading so much line by line takes about as long as looking at one more piece.
constexpr std::size_t lastStretch = 8192;
// The lines that a list takes from the key on.
constexpr std::size_t pageSize = 1024;
// Whoever reads on beyond that reads on for long.
constexpr std::size_t maxBlock = 16384;

bool hasNumber(std::string_view columns) { return columns.find_first_not_of(' ') != columns.npos; }

}  // namespace

TableReader::TableReader(std::unique_ptr<RandomAccessFile> file, const CodePage& codePage,
                         Buffer& kept)
    : SequentialFile(std::exchange(kept, {})),
      file_(std::move(file)),
      codePage_(codePage),
      kept_(kept),
      nextBlock_(pageSize) {}

std::optional<std::string_view> TableReader::readFirstFor(StringView key) {
  const KeyOrder order{key, codePage_};
  const auto size = file_->size();
  // Nothing is below an empty key, not even a line without a number.
  if (size && !key.empty()) approach(order, *size);
  // A file that has shrunk meanwhile may have no line left here.
  if (atEnd()) moveTo(0, pageSize);
  if (atEnd()) return std::nullopt;
  for (;;) {
    const std::string_view line = readLine();
    if (!order.isAbove(CatalogLine{line}.catalogColumns()) || atEnd()) return line;
  }
}

/// Moves to a line from which reading line by line leads to the same line as from the top.
void TableReader::approach(const KeyOrder& key, std::uint64_t size) {
  Stretch stretch;
  stretch.end = size;
  std::size_t piece = pieceSize;
  while (stretch.size() > lastStretch) {
    switch (look(key, stretch, piece)) {
      case Finding::narrower: piece = pieceSize; break;
      case Finding::found: return;
      case Finding::undecided:
        // Long lines, or many without a number.
        if (piece == lastStretch) return moveTo(stretch.begin, maxBlock);
        piece = lastStretch;
        break;
      case Finding::outOfOrder: return moveTo(0, maxBlock);
    }
  }
  moveTo(stretch.begin, static_cast<std::size_t>(stretch.size()) + pageSize);
}

/// Looks at the lines of a piece in the middle of the stretch and narrows it by what they tell.
/// Found is the line where the piece holds it: it is read on from there then.
TableReader::Finding TableReader::look(const KeyOrder& key, Stretch& stretch,
                                       std::size_t pieceSize) {
  const std::uint64_t place = stretch.begin + (stretch.size() - pieceSize) / 2;
  char* const bytes = emptyBuffer().data();
  const std::string_view piece{bytes, file_->readAt(place, bytes, pieceSize)};

  constexpr std::size_t none = std::string_view::npos;
  std::size_t linesBelow = 0;
  std::size_t lastBelow = none;
  std::size_t firstNotBelow = none;
  std::string_view number = stretch.first.columns();
  std::string_view numberBelow;
  std::string_view numberNotBelow;
  for (std::size_t end = piece.find('\n'); end != none;) {
    const std::size_t start = end + 1;
    end = piece.find('\n', start);
    std::string_view line = piece.substr(start, end - start);
    if (end == none && line.size() < CatalogLine::minLength) break;  // it goes on behind the piece
    if (line.ends_with('\r')) line.remove_suffix(1);
    const std::string_view next = CatalogLine{line}.catalogColumns();
    if (!hasNumber(next)) continue;
    if (isNumberBelow(next, number, codePage_)) return Finding::outOfOrder;
    number = next;
    if (key.isAbove(next)) {
      ++linesBelow;
      lastBelow = start;
      numberBelow = next;
    } else if (firstNotBelow == none) {
      firstNotBelow = start;
      numberNotBelow = next;
    }
  }
  if (isNumberBelow(stretch.behind.columns(), number, codePage_) &&
      hasNumber(stretch.behind.columns()))
    return Finding::outOfOrder;

  // A lone number below the key may be one that is below its place. One that is not below the key
  // shows by itself that the line looked for is not behind it.
  if (linesBelow > 1) {
    if (firstNotBelow != none) {
      setUnread(lastBelow, piece.size());
      offset_ = place + piece.size();
      return Finding::found;
    }
    stretch.begin = place + lastBelow;
    stretch.first.keep(numberBelow);
    return Finding::narrower;
  }
  if (firstNotBelow == none) return Finding::undecided;
  stretch.end = place + firstNotBelow;
  stretch.behind.keep(numberNotBelow);
  return Finding::narrower;
}

void TableReader::moveTo(std::uint64_t offset, std::size_t firstBlock) {
  emptyBuffer();
  offset_ = offset;
  nextBlock_ = firstBlock;
}

std::size_t TableReader::read(char* to, std::size_t room) {
  const std::size_t count = file_->readAt(offset_, to, std::min(room, nextBlock_));
  offset_ += count;
  nextBlock_ = std::min(maxBlock, nextBlock_ * 2);
  return count;
}

}  // namespace keyscout
