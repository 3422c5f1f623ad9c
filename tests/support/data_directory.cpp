#include "support/data_directory.h"

#include <fstream>
#include <set>
#include <stdexcept>

#include "base/utf8.h"

namespace keyscout::test {
namespace {

std::string padded(std::string text, std::size_t width) {
  text.resize(std::max(width, text.size()), ' ');
  return text;
}

}  // namespace

std::string tableLine(const Entry& entry) {
  return padded(entry.index, 10) + padded(entry.number, 60) + entry.brand;
}

std::string indexLine(const std::string& table, const Entry& first, const Entry& last) {
  const auto record = [](const Entry& entry) {
    return padded(entry.index, 10) + padded(entry.number, 60) + padded(entry.brand, 50);
  };
  return padded(table, 10) + record(first) + record(last);
}

DataDirectory::DataDirectory(const std::vector<std::vector<Entry>>& tables) {
  std::vector<std::string> index;
  std::set<std::string> brands;
  for (std::size_t position = 0; position < tables.size(); ++position) {
    std::vector<std::string> lines;
    for (const Entry& entry : tables[position]) {
      lines.push_back(tableLine(entry));
      brands.insert(entry.brand);
    }
    writeLines(std::to_string(position) + ".txt", lines);
    index.push_back(
        indexLine(std::to_string(position), tables[position].front(), tables[position].back()));
  }
  writeLines(toUtf8(indexFile), index);
  writeLines("brandinfo.txt", {brands.begin(), brands.end()});
  writeLines(toUtf8(downloadFile), {"FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]"});
  write("catcontrol.txt", "READY");
}

void DataDirectory::write(const std::string& file, std::string_view bytes) const {
  std::ofstream out{path() / file, std::ios::binary};
  out << bytes;
  if (!out.flush()) throw std::runtime_error{"cannot write " + file};
}

void DataDirectory::writeLines(const std::string& file,
                               const std::vector<std::string>& lines) const {
  std::string bytes;
  for (const std::string& line : lines) bytes += line + "\r\n";
  write(file, bytes);
}

std::vector<Entry> series(const std::string& prefix, int count,
                          const std::vector<std::string>& brands) {
  std::vector<Entry> entries;
  for (int i = 0; i < count; ++i) {
    std::string digits = std::to_string(i);
    digits.insert(0, 3 - digits.size(), '0');
    entries.push_back(
        {prefix + digits, brands[static_cast<std::size_t>(i) % brands.size()], std::to_string(i)});
  }
  return entries;
}

}  // namespace keyscout::test
