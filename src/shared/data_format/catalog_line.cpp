#include "shared/data_format/catalog_line.h"

#include "base/error.h"

namespace keyscout {

std::string_view CatalogLine::brand() const {
  if (bytes_.size() + 1 < brandColumn)
    throw platformFailure(PlatformError::invalidArgument, u"keyscoutControl");
  return trimmed(bytes_.substr(brandColumn - 1));
}

}  // namespace keyscout
