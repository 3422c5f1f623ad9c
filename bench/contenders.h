#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "bench_catalog.h"

namespace keyscout::bench {

/// The nine catalog numbers from a text on, as the component would list them.
using Answer = std::vector<std::string>;

/// The brands that a question is about; all where there are none.
using Brands = std::vector<std::string>;

/// The catalog in a SQLite database with an index on the number and one on brand and number; each
/// question is asked in the way that is best for it.
class SqliteCatalog {
 public:
  explicit SqliteCatalog(const BenchCatalog& catalog);
  Answer find(const std::string& text, const Brands& brands);
  const std::filesystem::path& file() const { return file_; }
  /// Drops what the library holds of the file in its own memory.
  void forget() { sqlite3_db_release_memory(database_.get()); }

 private:
  struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  void run(const char* sql);

  using Statement = std::unique_ptr<sqlite3_stmt, Close>;
  void create(const BenchCatalog& catalog);
  void open(const std::filesystem::path& file);
  Statement prepare(const std::string& sql);

  std::filesystem::path file_;
  std::unique_ptr<sqlite3, Close> database_;
  std::map<std::size_t, Statement> queries_;  // by the number of their brands
};

/// The catalog as two sorted arrays in memory.
class SortedCatalog {
 public:
  explicit SortedCatalog(const BenchCatalog& catalog);
  Answer find(const std::string& text, const Brands& brands) const;

 private:
  std::vector<std::string> numbers_;
  std::vector<std::string> brands_;
};

}  // namespace keyscout::bench
