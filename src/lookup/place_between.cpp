#include "lookup/place_between.h"

#include <algorithm>
#include <initializer_list>

namespace keyscout {
namespace {

// What stands behind so many differs by less than a line of the largest table.
constexpr std::size_t decisivePlaces = 8;

// The characters that catalog numbers are made of, close together: a blank or a mark, digits,
// what little stands between, letters, and the rest.
constexpr int firstDigit = 1;
constexpr int lastDigit = 10;
constexpr int firstLetter = 12;
constexpr int lastLetter = 37;

int rankAt(std::string_view number, std::size_t place) {
  const char character = place < number.size() ? number[place] : ' ';
  if (character >= '0' && character <= '9') return firstDigit + (character - '0');
  if (character >= 'A' && character <= 'Z') return firstLetter + (character - 'A');
  if (character > 'Z' || character < '\0') return lastLetter + 1;
  return character < '0' ? 0 : lastDigit + 1;
}

/// The ranks that may stand at one place of numbers, by those that do: with a digit every digit.
class Ranks {
 public:
  Ranks(std::initializer_list<int> seen) {
    for (const int rank : seen) {
      const bool isDigit = rank >= firstDigit && rank <= lastDigit;
      const bool isLetter = rank >= firstLetter && rank <= lastLetter;
      low_ = std::min(low_, isDigit ? firstDigit : isLetter ? firstLetter : rank);
      high_ = std::max(high_, isDigit ? lastDigit : isLetter ? lastLetter : rank);
    }
  }
  int count() const { return high_ - low_ + 1; }
  int above(int rank) const { return rank - low_; }

 private:
  int low_ = lastLetter + 1;
  int high_ = 0;
};

}  // namespace

double placeBetween(std::string_view first, std::string_view last, std::string_view key) {
  const auto start =
      static_cast<std::size_t>(std::ranges::mismatch(first, last).in1 - first.begin());
  const int side = key.substr(0, start).compare(first.substr(0, start));
  if (side != 0) return side < 0 ? 0 : 1;
  // The numbers as fractions, behind what both begin with: each place divides what the one before
  // it left.
  double toFirst = 0;
  double toLast = 0;
  double toKey = 0;
  double share = 1;
  for (std::size_t place = start; place < start + decisivePlaces; ++place) {
    const int rankOfFirst = rankAt(first, place);
    const int rankOfLast = rankAt(last, place);
    const int rankOfKey = rankAt(key, place);
    const Ranks ranks{rankOfFirst, rankOfLast, rankOfKey};
    share /= ranks.count();
    toFirst += share * ranks.above(rankOfFirst);
    toLast += share * ranks.above(rankOfLast);
    toKey += share * ranks.above(rankOfKey);
  }
  if (toLast <= toFirst) return 0.5;
  return std::clamp((toKey - toFirst) / (toLast - toFirst), 0.0, 1.0);
}

}  // namespace keyscout
