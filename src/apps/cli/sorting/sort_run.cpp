#include "apps/cli/sorting/sort_run.h"

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <utility>

#include "apps/cli/files/path_text.h"

namespace keyscout {
namespace {

struct Head {
  std::uint16_t keySize;
  std::uint16_t payloadSize;
};
static_assert(sizeof(Head) == SortLayout::headSize);

Head headAt(const char* bytes) {
  Head head;
  std::memcpy(&head, bytes, sizeof head);
  return head;
}

}  // namespace

void SortLayout::append(const SortRecord& record, std::vector<char>& bytes) {
  const Head head{static_cast<std::uint16_t>(record.key.size()),
                  static_cast<std::uint16_t>(record.payload.size())};
  const auto* headBytes = reinterpret_cast<const char*>(&head);
  bytes.insert(bytes.end(), headBytes, headBytes + sizeof head);
  bytes.insert(bytes.end(), record.key.begin(), record.key.end());
  bytes.insert(bytes.end(), record.payload.begin(), record.payload.end());
}

std::size_t SortLayout::bodySize(const char* head) {
  const Head sizes = headAt(head);
  return std::size_t{sizes.keySize} + sizes.payloadSize;
}

SortRecord SortLayout::at(const char* head) {
  const Head sizes = headAt(head);
  const char* const key = head + headSize;
  return {{key, sizes.keySize}, {key + sizes.keySize, sizes.payloadSize}};
}

RunReader::RunReader(std::filesystem::path path, std::size_t memory)
    : path_(std::move(path)), ahead_(memory), bytes_(SortLayout::headSize) {
  file_.pubsetbuf(ahead_.data(), static_cast<std::streamsize>(ahead_.size()));
  if (!file_.open(path_, std::ios::in | std::ios::binary))
    throw std::runtime_error(pathText(path_) + " cannot be opened");
}

bool RunReader::advance() {
  if (file_.sgetc() == std::filebuf::traits_type::eof()) return false;
  read(0, SortLayout::headSize);
  const std::size_t body = SortLayout::bodySize(bytes_.data());
  if (bytes_.size() < SortLayout::headSize + body) bytes_.resize(SortLayout::headSize + body);
  read(SortLayout::headSize, body);
  record_ = SortLayout::at(bytes_.data());
  return true;
}

void RunReader::read(std::size_t from, std::size_t count) {
  const auto wanted = static_cast<std::streamsize>(count);
  if (file_.sgetn(bytes_.data() + from, wanted) != wanted)
    throw std::runtime_error(pathText(path_) + " cannot be read to its end");
}

}  // namespace keyscout
