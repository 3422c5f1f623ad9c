#include "apps/cli/csv/first_numbers.h"

#include "apps/cli/packing/line_payload.h"
#include "platform/local/native_code_page.h"

namespace keyscout {
namespace {

constexpr std::size_t sortMemory = std::size_t{32} * 1024 * 1024;

}  // namespace

FirstNumbers::FirstNumbers(const std::filesystem::path& folder)
    : order_(nativeCodePage()), byFoldedForm_(folder, "first", sortMemory) {}

void FirstNumbers::add(std::string_view number) {
  order_.toKey(number, key_);
  order_.foldCase(key_, key_);
  setLinePayload(payload_, count_++);
  byFoldedForm_.add({key_, payload_});
}

std::vector<bool> FirstNumbers::repeated() {
  std::vector<bool> isRepeated(count_);
  std::string latest;
  // Equal keys come in the order in which they were added, and none is empty.
  while (const SortRecord* const record = byFoldedForm_.next()) {
    if (record->key == latest)
      isRepeated[LinePayload{record->payload}.line] = true;
    else
      latest = record->key;
  }
  return isRepeated;
}

}  // namespace keyscout
