#include "lookup/table_reader.h"

#include <algorithm>
#include <utility>

#include "lookup/place_between.h"
#include "shared/data_format/catalog_line.h"

namespace keyscout {
namespace {

// Some twenty lines: a good guess at the line's place is seldom further off.
constexpr std::size_t usualPiece = 2048;
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

TableReader::Number::Number(StringView text) : size_(std::min(text.size(), bytes_.size())) {
  std::ranges::transform(text.substr(0, size_), bytes_.begin(), [](char16_t unit) {
    return static_cast<char>(std::min<char16_t>(unit, 0xFF));
  });
}

void TableReader::Number::keep(std::string_view columns) {
  columns.remove_prefix(std::min(columns.find_first_not_of(' '), columns.size()));
  size_ = columns.copy(bytes_.data(), bytes_.size());
}

std::optional<std::string_view> TableReader::readFirstFor(StringView key, const Range& range) {
  const KeyOrder order{key, codePage_};
  const auto size = file_->size();
  // Nothing is below an empty key, not even a line without a number.
  if (size && !key.empty()) approach(order, key, range, *size);
  // A file that has shrunk meanwhile may have no line left here.
  if (atEnd()) moveTo(0, pageSize);
  if (atEnd()) return std::nullopt;
  for (;;) {
    const std::string_view line = readLine();
    if (!order.isAbove(CatalogLine{line}.catalogColumns()) || atEnd()) return line;
  }
}

/// Moves to a line from which reading line by line leads to the same line as from the top.
void TableReader::approach(const KeyOrder& order, StringView key, const Range& range,
                           std::uint64_t size) {
  const Number sought{key};
  const Number first{range.first};
  const Number last{range.last};
  Stretch stretch;
  stretch.end = size;
  std::size_t piece = usualPiece;
  for (int looks = 1; stretch.size() > lastStretch; ++looks) {
    // However unevenly the numbers are spread: every third look goes to the middle.
    const double share = looks % 3 == 0 ? 0.5
                                        : placeBetween(stretch.first.textOr(first),
                                                       stretch.behind.textOr(last), sought.text());
    switch (look(order, stretch, stretch.placeOf(piece, share), piece)) {
      case Finding::narrower: piece = usualPiece; break;
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

std::uint64_t TableReader::Stretch::placeOf(std::size_t piece, double share) const {
  const auto target = static_cast<std::uint64_t>(share * static_cast<double>(size()));
  return begin + std::clamp<std::uint64_t>(target, piece / 2, size() - piece / 2) - piece / 2;
}

/// Looks at the lines of the piece at `place` and narrows the stretch by what they tell. Found is
/// the line where the piece holds it: it is read on from there then.
TableReader::Finding TableReader::look(const KeyOrder& key, Stretch& stretch, std::uint64_t place,
                                       std::size_t pieceSize) {
  char* const bytes = emptyBuffer().data();
  const std::string_view piece{bytes, file_->readAt(place, bytes, pieceSize)};

  constexpr std::size_t none = std::string_view::npos;
  std::size_t linesBelow = 0;
  std::size_t lastBelow = none;
  std::size_t firstNotBelow = none;
  std::string_view number = stretch.first.text();
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
  if (isNumberBelow(stretch.behind.text(), number, codePage_) && hasNumber(stretch.behind.text()))
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
