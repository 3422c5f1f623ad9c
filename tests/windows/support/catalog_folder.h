#pragma once

#include <string>

#include "support/temporary_folder.h"

namespace keyscout {

/// A data directory of two tables with 20 numbers each, AB-100 to AB-119 and CD-100 to CD-119,
/// whose brands are ACME and BOLT in turn.
class CatalogFolder {
 public:
  CatalogFolder();

  std::wstring path() const { return folder_.path().wstring(); }
  void write(const wchar_t* name, const std::string& content);
  void remove(const wchar_t* name);

 private:
  test::TemporaryFolder folder_;
};

}  // namespace keyscout
