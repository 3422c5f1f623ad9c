#pragma once

#include <string>

namespace keyscout {

/// A data directory of two tables with 20 numbers each, AB-100 to AB-119 and CD-100 to CD-119,
/// whose brands are ACME and BOLT in turn. Removed with the object.
class CatalogFolder {
 public:
  CatalogFolder();
  ~CatalogFolder();
  CatalogFolder(const CatalogFolder&) = delete;
  CatalogFolder& operator=(const CatalogFolder&) = delete;

  const std::wstring& path() const { return path_; }
  void write(const wchar_t* name, const std::string& content);
  void remove(const wchar_t* name);

 private:
  std::wstring path_;
};

}  // namespace keyscout
