#pragma once

#include <fstream>
#include <string>
#include <vector>

#include "support/data_directory.h"

namespace keyscout::test {

/// A small sound catalog: three tables of four lines, AB-00 to AB-23, whose brands take turns. Its
/// files can be read as lines and damaged at will.
class SmallCatalog : public DataDirectory {
 public:
  using Lines = std::vector<std::string>;

  SmallCatalog() : DataDirectory(tables()) {}

  Lines read(const std::string& file) const {
    std::ifstream stream{path() / file, std::ios::binary};
    Lines lines;
    for (std::string line; std::getline(stream, line);) {
      if (line.ends_with('\r')) line.pop_back();
      lines.push_back(line);
    }
    return lines;
  }

  /// Puts `text` over what stands from the 1-based `column` of the 1-based `line` on.
  void overwrite(const std::string& file, std::size_t line, std::size_t column,
                 const std::string& text) const {
    Lines lines = read(file);
    std::string& damaged = lines.at(line - 1);
    damaged.resize(std::max(damaged.size(), column - 1 + text.size()), ' ');
    damaged.replace(column - 1, text.size(), text);
    writeLines(file, lines);
  }

  void append(const std::string& file, const std::string& line) const {
    Lines lines = read(file);
    lines.push_back(line);
    writeLines(file, lines);
  }

 private:
  static std::vector<std::vector<Entry>> tables() {
    std::vector<std::vector<Entry>> tables(3);
    for (int entry = 0; entry < 12; ++entry) {
      const std::string number = "AB-" + std::to_string(entry / 4) + std::to_string(entry % 4);
      tables[static_cast<std::size_t>(entry / 4)].push_back(
          {number, entry % 2 == 0 ? "ACME" : "BOLT", std::to_string(entry + 1)});
    }
    return tables;
  }
};

}  // namespace keyscout::test
