#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "bench_catalog.h"

namespace keyscout::bench {

/// The nine catalog numbers from a text on, as the component would list them.
using Answer = std::vector<std::string>;

/// The parts of table files that a lookup cannot do without.
struct FilePart {
  std::string path;
  std::size_t bytes;
};

/// What a lookup that lists `entries` from table `table` on must read: each table from its first
/// line to the last one that it offers.
std::vector<FilePart> requiredParts(const std::filesystem::path& directory, int table,
                                    const Answer& entries);

/// Reads the parts in blocks and does nothing with them; how many bytes it read.
std::size_t readBare(const std::vector<FilePart>& parts);

/// The catalog in a SQLite database with an index on the number.
class SqliteCatalog {
 public:
  explicit SqliteCatalog(const BenchCatalog& catalog);
  /// An empty `brand` filters nothing.
  Answer find(const std::string& text, const std::string& brand);

 private:
  struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  void run(const char* sql);

  std::unique_ptr<sqlite3, Close> database_;
  std::unique_ptr<sqlite3_stmt, Close> query_;
};

/// The catalog as two sorted arrays in memory.
class SortedCatalog {
 public:
  explicit SortedCatalog(const BenchCatalog& catalog);
  Answer find(const std::string& text, const std::string& brand) const;

 private:
  std::vector<std::string> numbers_;
  std::vector<std::string> brands_;
};

}  // namespace keyscout::bench
