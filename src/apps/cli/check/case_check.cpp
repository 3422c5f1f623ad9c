#include "apps/cli/check/case_check.h"

#include <cstring>
#include <functional>

#include "base/letter_case.h"

namespace keyscout {
namespace {

// 16 MB; with ten million noted numbers one other number in thirteen falls on a noted bit.
constexpr std::size_t bitCount = std::size_t{1} << 27;
constexpr std::size_t sortMemory = std::size_t{64} * 1024 * 1024;

/// Where a number stands, as it goes along through the sort, and the number itself.
struct Where {
  std::uint64_t line;
  std::uint32_t table;
};

void setPayload(std::string& payload, const Where& where, std::string_view number) {
  payload.resize(sizeof where);
  std::memcpy(payload.data(), &where, sizeof where);
  payload += number;
}

Where whereOf(std::string_view payload) {
  Where where;
  std::memcpy(&where, payload.data(), sizeof where);
  return where;
}

}  // namespace

CaseCheck::CaseCheck(const CheckedDirectory& directory, const NumberOrder& order)
    : directory_(directory), order_(order) {
  for (std::size_t byte = 0; byte < isLowerCase_.size(); ++byte) {
    const char16_t unit = directory.codePage[static_cast<char>(byte)];
    isLowerCase_[byte] = upperCase(unit) != unit;
  }
}

std::size_t CaseCheck::bitOf(std::string_view number) {
  order_.toKey(number, folded_);
  order_.foldCase(folded_, folded_);
  return std::hash<std::string_view>{}(folded_) % bitCount;
}

void CaseCheck::note(std::string_view number) {
  if (bits_.empty()) bits_.resize(bitCount);
  bits_[bitOf(number)] = true;
}

void CaseCheck::collect(std::string_view number, std::uint32_t table, std::uint64_t line) {
  if (!bits_[bitOf(number)]) return;
  if (!sorter_) {
    folder_ = std::make_unique<TemporaryFolder>("keyscout-check");
    sorter_ = std::make_unique<ExternalSorter>(folder_->path(), "number", sortMemory);
  }
  setPayload(payload_, {line, table}, number);
  sorter_->add({folded_, payload_});
}

void CaseCheck::report(const std::vector<std::string>& fileNames) {
  if (!sorter_) return;
  std::string groupKey;
  std::string first;  // of the group, as its payload has it
  const auto numberOf = [](std::string_view payload) { return payload.substr(sizeof(Where)); };
  while (const SortRecord* const record = sorter_->next()) {
    if (first.empty() || record->key != groupKey) {
      groupKey = record->key;
      first = record->payload;
      continue;
    }
    // Equal ones are neighbours in the tables and were reported there.
    if (numberOf(record->payload) == numberOf(first)) continue;
    const Where where = whereOf(record->payload);
    const Where other = whereOf(first);
    directory_.warning(fileNames[where.table], where.line,
                       "number " + directory_.inQuotes(numberOf(record->payload)) +
                           " differs in letter case only from " +
                           directory_.inQuotes(numberOf(first)) + " (" + fileNames[other.table] +
                           ':' + std::to_string(other.line) + "); a list shows only one of them");
  }
}

}  // namespace keyscout
