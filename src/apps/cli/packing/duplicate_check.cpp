#include "apps/cli/packing/duplicate_check.h"

#include <utility>

#include "apps/cli/packing/line_payload.h"
#include "apps/cli/packing/pack_error.h"
#include "base/utf8.h"

namespace keyscout {
namespace {

/// A record of the folded order as the number that it was made of.
NumberOnLine originalOf(std::string_view payload) {
  const LinePayload original{payload};
  return {original.text, original.line};
}

}  // namespace

DuplicateCheck::DuplicateCheck(std::filesystem::path download, const NumberOrder& order,
                               const std::filesystem::path& folder, std::size_t memory)
    : download_(std::move(download)), order_(order), byFoldedForm_(folder, "folded", memory) {}

void DuplicateCheck::collect(const NumberOnLine& number) {
  order_.foldCase(number.key, foldedKey_);
  if (foldedKey_ == number.key) return;
  setLinePayload(payload_, number.line);
  payload_ += number.key;
  byFoldedForm_.add({foldedKey_, payload_});
}

void DuplicateCheck::check(const NumberOnLine& number) {
  if (previousLine_ != 0 && number.key == previousKey_)
    refuse({previousKey_, previousLine_}, number);
  previousKey_ = number.key;
  previousLine_ = number.line;

  if (!isFollowing_) {
    isFollowing_ = true;
    advanceFolded();
  }
  // A folded form comes before every number that has it, so the last number leaves none behind.
  while (folded_ && folded_->key < number.key) advanceFolded();
  if (folded_ && folded_->key == number.key) refuse(originalOf(folded_->payload), number);
}

void DuplicateCheck::advanceFolded() {
  const bool hasPrevious = folded_ != nullptr;
  if (hasPrevious) {
    previousFolded_ = folded_->key;
    previousFoldedPayload_ = folded_->payload;
  }
  folded_ = byFoldedForm_.next();
  if (hasPrevious && folded_ && folded_->key == previousFolded_)
    refuse(originalOf(previousFoldedPayload_), originalOf(folded_->payload));
}

void DuplicateCheck::refuse(const NumberOnLine& a, const NumberOnLine& b) const {
  const auto& [first, second] = a.line < b.line ? std::pair{a, b} : std::pair{b, a};
  const auto quoted = [&](std::string_view key) {
    std::string text;
    order_.toText(key, text);
    return '"' + toUtf8(order_.codePage().decode(text)) + '"';
  };
  const std::string place = " on line " + std::to_string(first.line);
  throw refusalOf(download_, second.line,
                  "The catalog number " + quoted(second.key) +
                      (first.key == second.key ? " stands" + place + " already"
                                               : " differs from " + quoted(first.key) + place +
                                                     " in letter case alone") +
                      "; remove one of the two.");
}

}  // namespace keyscout
