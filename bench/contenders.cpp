#include "contenders.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <iostream>
#include <stdexcept>

namespace keyscout::bench {
namespace {

constexpr std::size_t answerSize = 9;

std::string numberOf(const std::string& line) {
  const std::string field = line.substr(10, 60);
  return field.substr(0, field.find(' '));
}

}  // namespace

std::vector<FilePart> requiredParts(const std::filesystem::path& directory, int table,
                                    const Answer& entries) {
  std::vector<FilePart> parts;
  for (;; ++table) {
    const auto path = directory / (std::to_string(table) + ".txt");
    std::ifstream file{path, std::ios::binary};
    if (!file) throw std::runtime_error{"no table " + path.string()};
    parts.push_back({path.string(), 0});
    std::string line;
    while (std::getline(file, line)) {
      parts.back().bytes += line.size() + 1;
      if (numberOf(line) == entries.back()) return parts;
    }
  }
}

std::size_t readBare(const std::vector<FilePart>& parts) {
  static std::array<char, 32 * 1024> block;
  std::size_t total = 0;
  for (const FilePart& part : parts) {
    const int file = ::open(part.path.c_str(), O_RDONLY | O_CLOEXEC);
    for (std::size_t left = part.bytes; left != 0;) {
      const ssize_t count = ::read(file, block.data(), std::min(left, block.size()));
      if (count <= 0) throw std::runtime_error{"cannot read " + part.path};
      left -= static_cast<std::size_t>(count);
    }
    ::close(file);
    total += part.bytes;
  }
  return total;
}

SqliteCatalog::SqliteCatalog(const BenchCatalog& catalog) {
  const auto path = catalog.directory() / "catalog.sqlite";
  const bool isThere = std::filesystem::exists(path);
  const auto partial = catalog.directory() / "catalog.partial";
  const auto open = [&](const std::filesystem::path& file) {
    sqlite3* database = nullptr;
    if (sqlite3_open(file.c_str(), &database) != SQLITE_OK)
      throw std::runtime_error{"cannot open " + file.string()};
    database_.reset(database);
  };
  if (!isThere) {
    std::cerr << "making a database of " << catalog.size() << " numbers\n";
    std::filesystem::remove(partial);
    open(partial);
    run("PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF;"
        "CREATE TABLE catalog(idx INTEGER, number TEXT, brand TEXT); BEGIN");
    sqlite3_stmt* insert = nullptr;
    sqlite3_prepare_v2(database_.get(), "INSERT INTO catalog VALUES(?1, ?2, ?3)", -1, &insert,
                       nullptr);
    query_.reset(insert);
    for (std::size_t i = 0; i < catalog.size(); ++i) {
      const std::string number = catalog.number(i);
      const std::string brand = catalog.brand(i);
      sqlite3_bind_int64(insert, 1, static_cast<sqlite3_int64>(i));
      sqlite3_bind_text(insert, 2, number.c_str(), -1, SQLITE_STATIC);
      sqlite3_bind_text(insert, 3, brand.c_str(), -1, SQLITE_STATIC);
      if (sqlite3_step(insert) != SQLITE_DONE) throw std::runtime_error{"insert failed"};
      sqlite3_reset(insert);
    }
    run("COMMIT; CREATE INDEX byNumber ON catalog(number)");
    query_.reset();
    database_.reset();
    std::filesystem::rename(partial, path);
  }
  open(path);
  sqlite3_stmt* query = nullptr;
  if (sqlite3_prepare_v2(database_.get(),
                         "SELECT number, brand, idx FROM catalog WHERE number >= ?1 "
                         "AND (?2 = '' OR brand = ?2) ORDER BY number LIMIT 9",
                         -1, &query, nullptr) != SQLITE_OK)
    throw std::runtime_error{sqlite3_errmsg(database_.get())};
  query_.reset(query);
}

void SqliteCatalog::run(const char* sql) {
  if (sqlite3_exec(database_.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK)
    throw std::runtime_error{sqlite3_errmsg(database_.get())};
}

Answer SqliteCatalog::find(const std::string& text, const std::string& brand) {
  sqlite3_stmt* const query = query_.get();
  sqlite3_bind_text(query, 1, text.c_str(), -1, SQLITE_STATIC);
  sqlite3_bind_text(query, 2, brand.c_str(), -1, SQLITE_STATIC);
  Answer answer;
  while (sqlite3_step(query) == SQLITE_ROW) {
    const auto column = [&](int i) {
      return reinterpret_cast<const char*>(sqlite3_column_text(query, i));
    };
    answer.emplace_back(column(0));
    // The component hands out brand and index too.
    if (!column(1) || sqlite3_column_int64(query, 2) < 0) throw std::runtime_error{"bad row"};
  }
  sqlite3_reset(query);
  return answer;
}

SortedCatalog::SortedCatalog(const BenchCatalog& catalog) {
  for (std::size_t i = 0; i < catalog.size(); ++i) {
    numbers_.push_back(catalog.number(i));
    brands_.push_back(catalog.brand(i));
  }
}

Answer SortedCatalog::find(const std::string& text, const std::string& brand) const {
  Answer answer;
  auto at = static_cast<std::size_t>(std::ranges::lower_bound(numbers_, text) - numbers_.begin());
  for (; at < numbers_.size() && answer.size() < answerSize; ++at)
    if (brand.empty() || brands_[at] == brand) answer.push_back(numbers_[at]);
  return answer;
}

}  // namespace keyscout::bench
