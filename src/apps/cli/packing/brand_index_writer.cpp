#include "apps/cli/packing/brand_index_writer.h"

#include <algorithm>
#include <chrono>
#include <thread>
#include <vector>

#include "apps/cli/files/input_file.h"
#include "apps/cli/files/output_file.h"
#include "apps/cli/packing/directory_files.h"
#include "shared/data_format/directory_files.h"
#include "shared/data_format/line_digest.h"

namespace keyscout {
namespace {

// The coarsest clock that a file system has ticks every two seconds.
constexpr std::chrono::seconds maxTick{3};

std::uint64_t digestOf(const std::filesystem::path& path) {
  InputFile file{path};
  LineDigest digest;
  while (!file.atEnd()) digest.add(file.readLine());
  return digest.value();
}

void writeText(const std::filesystem::path& path, std::string_view text) {
  OutputFile file{path};
  file.write(text);
  file.close();
}

}  // namespace

void BrandIndexWriter::add(std::string_view brand, std::uint64_t table) {
  const auto found = brands_.find(brand);
  TableSet& tables = found != brands_.end() ? found->second : brands_[std::string{brand}];
  tables.set(static_cast<std::size_t>(table));
}

void BrandIndexWriter::write(const std::filesystem::path& folder,
                             const std::filesystem::path& indexName, std::uint64_t tables) const {
  std::string text;
  LineDigest digest;
  const auto addLine = [&](const std::string& line) {
    digest.add(line);
    text += line + "\r\n";
  };
  std::string sizes;
  std::filesystem::file_time_type newest = std::filesystem::file_time_type::min();
  for (std::uint64_t i = 0; i < tables; ++i) {
    const auto table = folder / tableFile(i);
    sizes += (i == 0 ? "" : " ") + std::to_string(std::filesystem::file_size(table));
    newest = std::max(newest, std::filesystem::last_write_time(table));
  }
  addLine(std::string{BrandIndexFormat::title});
  addLine(std::string{BrandIndexFormat::index} +
          BrandIndexFormat::digestText(digestOf(folder / indexName)));
  addLine(std::string{BrandIndexFormat::sizes} + sizes);
  for (const auto& [brand, set] : brands_) addLine(BrandIndexFormat::tablesText(set) + ' ' + brand);
  text +=
      std::string{BrandIndexFormat::end} + BrandIndexFormat::digestText(digest.value()) + "\r\n";
  if (text.size() > BrandIndexFormat::maxSize) return;

  // A table counts as changed unless it is older, so the file system's clock has to move on first.
  const auto path = folder / DirectoryFiles::brandIndex;
  const auto deadline = std::chrono::steady_clock::now() + maxTick;
  writeText(path, text);
  while (std::filesystem::last_write_time(path) <= newest &&
         std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(std::chrono::milliseconds{1});
    writeText(path, text);
  }
}

}  // namespace keyscout
