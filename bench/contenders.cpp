#include "contenders.h"

#include <algorithm>
#include <iostream>
#include <stdexcept>

namespace keyscout::bench {
namespace {

constexpr std::size_t answerSize = 9;

/// The question about `brands` brands: one walk along an index for each, and the best of them.
std::string queryFor(std::size_t brands) {
  const std::string select = "SELECT number, brand, idx FROM catalog WHERE number >= ?1 ";
  const std::string order = "ORDER BY number LIMIT " + std::to_string(answerSize);
  if (brands == 0) return select + order;
  std::string query;
  for (std::size_t i = 0; i < brands; ++i)
    query += std::string{i == 0 ? "" : "UNION ALL "} + "SELECT * FROM (" + select +
             "AND brand = ?" + std::to_string(i + 2) + " " + order + ") ";
  return query + order;
}

}  // namespace

SqliteCatalog::SqliteCatalog(const BenchCatalog& catalog)
    : file_(catalog.directory() / "catalog.sqlite") {
  if (!std::filesystem::exists(file_)) create(catalog);
  open(file_);
}

void SqliteCatalog::open(const std::filesystem::path& file) {
  sqlite3* database = nullptr;
  if (sqlite3_open(file.c_str(), &database) != SQLITE_OK)
    throw std::runtime_error{"cannot open " + file.string()};
  database_.reset(database);
}

void SqliteCatalog::create(const BenchCatalog& catalog) {
  std::cerr << "making a database of " << catalog.size() << " numbers\n";
  const auto partial = catalog.directory() / "catalog.partial";
  std::filesystem::remove(partial);
  open(partial);
  run("PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF;"
      "CREATE TABLE catalog(idx INTEGER, number TEXT, brand TEXT); BEGIN");
  Statement insert = prepare("INSERT INTO catalog VALUES(?1, ?2, ?3)");
  for (std::size_t i = 0; i < catalog.size(); ++i) {
    const std::string number = catalog.number(i);
    const std::string brand = catalog.brand(i);
    sqlite3_bind_int64(insert.get(), 1, static_cast<sqlite3_int64>(i));
    sqlite3_bind_text(insert.get(), 2, number.c_str(), -1, SQLITE_STATIC);
    sqlite3_bind_text(insert.get(), 3, brand.c_str(), -1, SQLITE_STATIC);
    if (sqlite3_step(insert.get()) != SQLITE_DONE) throw std::runtime_error{"insert failed"};
    sqlite3_reset(insert.get());
  }
  insert.reset();
  run("COMMIT; CREATE INDEX byNumber ON catalog(number);"
      "CREATE INDEX byBrand ON catalog(brand, number)");
  database_.reset();
  std::filesystem::rename(partial, file_);
}

void SqliteCatalog::run(const char* sql) {
  if (sqlite3_exec(database_.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK)
    throw std::runtime_error{sqlite3_errmsg(database_.get())};
}

SqliteCatalog::Statement SqliteCatalog::prepare(const std::string& sql) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(database_.get(), sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
    throw std::runtime_error{sqlite3_errmsg(database_.get())};
  return Statement{statement};
}

Answer SqliteCatalog::find(const std::string& text, const Brands& brands) {
  Statement& prepared = queries_[brands.size()];
  if (!prepared) prepared = prepare(queryFor(brands.size()));
  sqlite3_stmt* const query = prepared.get();
  sqlite3_bind_text(query, 1, text.c_str(), -1, SQLITE_STATIC);
  for (std::size_t i = 0; i < brands.size(); ++i)
    sqlite3_bind_text(query, static_cast<int>(i + 2), brands[i].c_str(), -1, SQLITE_STATIC);
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

Answer SortedCatalog::find(const std::string& text, const Brands& brands) const {
  Answer answer;
  auto at = static_cast<std::size_t>(std::ranges::lower_bound(numbers_, text) - numbers_.begin());
  for (; at < numbers_.size() && answer.size() < answerSize; ++at)
    if (brands.empty() || std::ranges::find(brands, brands_[at]) != brands.end())
      answer.push_back(numbers_[at]);
  return answer;
}

}  // namespace keyscout::bench
