#include "shared/data_format/brand_index.h"

#include <charconv>

namespace keyscout {
namespace {

constexpr int digestDigits = 16;

/// Takes a number off the front of `text`.
template <class Number>
std::optional<Number> takeNumber(std::string_view& text, int base = 10) {
  Number number = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  if (failure != std::errc{}) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return number;
}

bool take(std::string_view& text, char character) {
  if (!text.starts_with(character)) return false;
  text.remove_prefix(1);
  return true;
}

std::optional<std::uint64_t> parseDigest(std::string_view text) {
  if (text.size() != digestDigits) return std::nullopt;
  const auto digest = takeNumber<std::uint64_t>(text, 16);
  return text.empty() ? digest : std::nullopt;
}

/// Takes the tables off the front of a brand's line.
std::optional<TableSet> takeTables(std::string_view& line, std::size_t count) {
  TableSet tables;
  do {
    const auto first = takeNumber<std::size_t>(line);
    const auto last = take(line, '-') ? takeNumber<std::size_t>(line) : first;
    if (!first || !last || *first > *last || *last >= count) return std::nullopt;
    for (std::size_t i = *first; i <= *last; ++i) tables.set(i);
  } while (take(line, ','));
  return tables;
}

}  // namespace

std::string BrandIndexFormat::digestText(std::uint64_t digest) {
  std::string text(digestDigits, '0');
  for (auto digit = text.rbegin(); digit != text.rend(); ++digit, digest >>= 4)
    *digit = "0123456789abcdef"[digest & 0xF];
  return text;
}

std::string BrandIndexFormat::tablesText(const TableSet& tables) {
  std::string text;
  for (std::size_t i = 0; i < tables.size(); ++i) {
    if (!tables[i]) continue;
    const std::size_t first = i;
    while (i + 1 < tables.size() && tables[i + 1]) ++i;
    if (!text.empty()) text += ',';
    text += std::to_string(first);
    if (i != first) text += '-' + std::to_string(i);
  }
  return text;
}

BrandIndexReader::BrandIndexReader(SequentialFile& file) : file_(file) {
  if (!takeLine(BrandIndexFormat::title)) return;
  const auto index = takeLine(BrandIndexFormat::index);
  const auto digest = index ? parseDigest(*index) : std::nullopt;
  auto sizes = takeLine(BrandIndexFormat::sizes);
  while (sizes && !sizes->empty()) {
    const auto size = takeNumber<std::uint64_t>(*sizes);
    const bool isFollowed = take(*sizes, ' ');
    if (!size || tableSizes_.size() == TableSet{}.size() || isFollowed == sizes->empty()) return;
    tableSizes_.push_back(*size);
  }
  if (sizes) indexDigest_ = digest;
}

std::optional<BrandIndexReader::Brand> BrandIndexReader::nextBrand() {
  if (!indexDigest_ || file_.atEnd()) return std::nullopt;
  std::string_view line = file_.readLine();
  if (line.starts_with(BrandIndexFormat::end)) {
    const auto digest = parseDigest(line.substr(BrandIndexFormat::end.size()));
    isWhole_ = digest == digest_.value() && file_.atEnd();
    return std::nullopt;
  }
  digest_.add(line);
  const auto tables = takeTables(line, tableSizes_.size());
  if (!tables || !take(line, ' ')) return std::nullopt;
  return Brand{*tables, line};
}

/// What stands behind `beginning` on the next line; absent where that begins otherwise.
std::optional<std::string_view> BrandIndexReader::takeLine(std::string_view beginning) {
  if (file_.atEnd()) return std::nullopt;
  const std::string_view line = file_.readLine();
  digest_.add(line);
  if (!line.starts_with(beginning)) return std::nullopt;
  return line.substr(beginning.size());
}

}  // namespace keyscout
