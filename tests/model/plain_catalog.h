#pragma once

#include <map>
#include <random>
#include <string>
#include <vector>

namespace keyscout::test {

/// A data directory as lines, with all that may be wrong with one.
struct PlainCatalog {
  struct Table {
    std::string number;  // by which the index calls it
    std::string first;
    std::string last;
  };

  std::vector<Table> index;
  std::map<std::string, std::vector<std::string>> files;  // tables by file name
  std::vector<std::string> brands;
};

/// Tables of numbers that share their beginnings, small or large; one in three catalogs is damaged.
PlainCatalog randomCatalog(std::mt19937& random);

}  // namespace keyscout::test
