#include "apps/cli/packing/duplicate_check.h"

#include "apps/cli/packing/line_payload.h"

namespace keyscout {
namespace {

/// A record of the folded order as the number that it was made of.
NumberOnLine originalOf(std::string_view payload) {
  const LinePayload original{payload};
  return {original.text, original.line};
}

}  // namespace

DuplicateCheck::DuplicateCheck(const NumberOrder& order, const std::filesystem::path& folder,
                               std::size_t memory)
    : order_(order), byFoldedForm_(folder, "folded", memory) {}

void DuplicateCheck::collect(const NumberOnLine& number) {
  order_.foldCase(number.key, foldedKey_);
  if (foldedKey_ == number.key) return;
  setLinePayload(payload_, number.line);
  payload_ += number.key;
  byFoldedForm_.add({foldedKey_, payload_});
}

void DuplicateCheck::check(const NumberOnLine& number, DuplicateList& found) {
  const bool isRepeated = previousLine_ != 0 && number.key == previousKey_;
  if (isRepeated) found.add({previousKey_, previousLine_}, number);
  previousKey_ = number.key;
  previousLine_ = number.line;

  if (!isFollowing_) {
    isFollowing_ = true;
    advanceFolded(found);
  }
  // A folded form comes before every number that has it, so the last number leaves none behind.
  while (folded_ && folded_->key < number.key) advanceFolded(found);
  if (!isRepeated && folded_ && folded_->key == number.key)
    found.add(originalOf(folded_->payload), number);
}

void DuplicateCheck::advanceFolded(DuplicateList& found) {
  const bool hasPrevious = folded_ != nullptr;
  if (hasPrevious) {
    previousFolded_ = folded_->key;
    previousFoldedPayload_ = folded_->payload;
  }
  folded_ = byFoldedForm_.next();
  if (!hasPrevious || !folded_ || folded_->key != previousFolded_) return;
  const NumberOnLine a = originalOf(previousFoldedPayload_);
  const NumberOnLine b = originalOf(folded_->payload);
  // Equal ones are neighbours in the order of the numbers too.
  if (a.key != b.key) found.add(a, b);
}

}  // namespace keyscout
