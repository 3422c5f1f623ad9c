#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "support/temporary_folder.h"

namespace keyscout::test {

struct Entry {
  std::string number;
  std::string brand;
  std::string index = "1";
};

/// Columns of a table line and of an index line.
std::string tableLine(const Entry& entry);
std::string indexLine(const std::string& table, const Entry& first, const Entry& last);

/// A data directory made of whole tables: index, brands, download and control file included.
class DataDirectory {
 public:
  static constexpr StringView indexFile = u"catindex.txt";
  static constexpr StringView downloadFile = u"download.txt";

  /// One table for each list of entries, which must be in order.
  explicit DataDirectory(const std::vector<std::vector<Entry>>& tables);

  const std::filesystem::path& path() const { return folder_.path(); }
  String hostPath() const { return folder_.hostPath(); }

  void write(const std::string& file, std::string_view bytes) const;
  void writeLines(const std::string& file, const std::vector<std::string>& lines) const;
  void remove(const std::string& file) const { std::filesystem::remove(path() / file); }

 private:
  TemporaryFolder folder_;
};

/// `count` entries PREFIX000, PREFIX001, ... with the brands in turn.
std::vector<Entry> series(const std::string& prefix, int count,
                          const std::vector<std::string>& brands = {"ACME"});

}  // namespace keyscout::test
