#include "model/plain_catalog.h"

#include <set>
#include <utility>

namespace keyscout::test {
namespace {

std::string padded(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

class CatalogMaker {
 public:
  explicit CatalogMaker(std::mt19937& random) : random_(random) {}

  PlainCatalog make() {
    PlainCatalog catalog;
    catalog.brands = {"ACME", "BOLT", "CORD"};
    const std::vector<std::string> numbers =
        sortedNumbers(below(4) == 0 ? 300 + below(200) : 5 + below(60));
    // Large tables are searched in another way than small ones.
    const std::size_t perTable = numbers.size() >= 300 ? 100 + below(300) : 1 + below(30);
    for (std::size_t from = 0; from < numbers.size(); from += perTable) {
      const std::size_t to = std::min(numbers.size(), from + perTable);
      const std::string name = std::to_string(catalog.index.size());
      catalog.index.push_back({name, numbers[from], numbers[to - 1]});
      auto& lines = catalog.files[name + ".txt"];
      for (std::size_t i = from; i < to; ++i)
        lines.push_back(padded(std::to_string(i), 10) + padded(numbers[i], 60) + brand());
    }
    if (below(3) == 0) damage(catalog);
    return catalog;
  }

 private:
  std::size_t below(std::size_t limit) { return random_() % limit; }

  std::string brand() {
    // A brand that no file names, one in other letters, and none at all.
    static const std::vector<std::string> brands{"ACME", "ACME", "BOLT", "CORD",
                                                 "Acme", "DUST", ""};
    return brands[below(brands.size())];
  }

  std::vector<std::string> sortedNumbers(std::size_t count) {
    static const std::string letters = "AAABB-/019b";
    std::set<std::string> numbers;
    while (numbers.size() < count) {
      std::string number = below(3) == 0 ? "ABCDEFGH" : below(2) == 0 ? "AB-" : "";
      for (std::size_t length = 1 + below(4); length != 0; --length)
        number += letters[below(letters.size())];
      numbers.insert(number);
    }
    std::vector<std::string> sorted{numbers.begin(), numbers.end()};
    // Twice the same number.
    if (below(4) == 0) sorted.insert(sorted.begin() + 1, sorted.front());
    return sorted;
  }

  void damage(PlainCatalog& catalog) {
    const std::size_t table = below(catalog.index.size());
    const std::string file = catalog.index[table].number + ".txt";
    auto& lines = catalog.files[file];
    std::string& line = lines[below(lines.size())];
    switch (below(7)) {
      case 0: catalog.files.erase(file); break;
      case 1: lines.clear(); break;
      case 2: line.resize(69); break;
      case 3: line.replace(0, 10, "x         "); break;
      case 4: catalog.index[table].number = std::to_string(below(catalog.index.size() + 1)); break;
      case 5: std::swap(catalog.index[table].last, catalog.index.front().last); break;
      default: catalog.index.clear(); break;
    }
  }

  std::mt19937& random_;
};

}  // namespace

PlainCatalog randomCatalog(std::mt19937& random) { return CatalogMaker{random}.make(); }

}  // namespace keyscout::test
