#include "apps/cli/packing/duplicate_list.h"

#include <iterator>
#include <utility>

#include "apps/cli/sentences/in_quotes.h"

namespace keyscout {
namespace {

constexpr std::size_t maxTold = 20;

}  // namespace

void DuplicateList::add(const NumberOnLine& a, const NumberOnLine& b) {
  ++count_;
  const auto& [first, second] = a.line < b.line ? std::pair{a, b} : std::pair{b, a};
  if (first_.size() == maxTold && second.line >= std::prev(first_.end())->first) return;
  const auto number = [&](std::string_view key) {
    std::string text;
    order_.toText(key, text);
    return inQuotes(text, order_.codePage());
  };
  const std::string place = " on line " + std::to_string(first.line);
  const std::string fault = first.key == second.key ? " stands" + place + " already"
                                                    : " differs from " + number(first.key) + place +
                                                          " in letter case alone";
  first_.emplace(second.line,
                 "The catalog number " + number(second.key) + fault + "; remove one of the two.");
  if (first_.size() > maxTold) first_.erase(std::prev(first_.end()));
}

void DuplicateList::refuse() const {
  if (count_ == 0) return;
  std::string sentences;
  for (const auto& [line, sentence] : first_) {
    if (!sentences.empty()) sentences += '\n';
    sentences += origin_.place(line) + ": " + sentence;
  }
  if (const std::uint64_t more = count_ - first_.size(); more != 0)
    sentences += "\nThese are the first " + std::to_string(maxTold) + "; " + std::to_string(more) +
                 (more == 1 ? " more number stands" : " more numbers stand") + " twice.";
  throw PackError(sentences, ExitStatus::negative);
}

}  // namespace keyscout
