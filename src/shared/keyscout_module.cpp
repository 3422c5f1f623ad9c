#include "shared/keyscout_module.h"

#include "platform/thread_slot.h"

namespace keyscout {

keyscoutModule& keyscoutModule::ofThisThread() {
  ThreadSlot& slot = ThreadSlot::ofThisThread();
  if (slot.isOver) throw platformFailure(PlatformError::objectNotSet, u"keyscoutModule");
  if (!slot.object) {
    slot.object = new keyscoutModule;
    slot.destroy = [](void* object) { delete static_cast<keyscoutModule*>(object); };
  }
  return *static_cast<keyscoutModule*>(slot.object);
}

}  // namespace keyscout
