#include "shared/keyscout_module.h"

#include "platform/error.h"
#include "platform/thread_slot.h"

namespace keyscout {

keyscoutModule& keyscoutModule::ofThisThread() {
  ThreadSlot& slot = ThreadSlot::ofThisThread();
  if (!slot.object) {
    slot.object = new keyscoutModule;
    slot.destroy = [](void* object) { delete static_cast<keyscoutModule*>(object); };
  }
  return *static_cast<keyscoutModule*>(slot.object);
}

StringView keyscoutModule::field(std::int16_t i, String CatalogTableEntry::*member) const {
  if (i < 0 || i >= catalogTableCapacity)
    throw platformFailure(PlatformError::subscriptOutOfRange, u"keyscoutModule");
  const auto subscript = static_cast<std::size_t>(i);
  if (subscript >= catalogTableIndex.size()) return {};
  return trimmed(catalogTableIndex[subscript].*member);
}

StringView keyscoutModule::getTableNumber(std::int16_t i) const {
  return field(i, &CatalogTableEntry::tableNumber);
}

StringView keyscoutModule::getFirstCatalog(std::int16_t i) const {
  return field(i, &CatalogTableEntry::firstCatalog);
}

StringView keyscoutModule::getLastCatalog(std::int16_t i) const {
  return field(i, &CatalogTableEntry::lastCatalog);
}

}  // namespace keyscout
