#include "shared/data_format/catalog_line.h"

#include "base/error.h"
#include "shared/procedure.h"

namespace keyscout {

std::string_view CatalogLine::brand() const {
  if (bytes_.size() < minLength)
    throw platformFailure(PlatformError::invalidArgument, controlClass);
  return trimmed(bytes_.substr(minLength));
}

}  // namespace keyscout
