#include "platform/memory/memory_form.h"
#include "support/toolkit.h"

namespace keyscout::test {

std::unique_ptr<PlayableForm> makeForm(CallHook* hook) {
  return std::make_unique<MemoryForm>(hook);
}

}  // namespace keyscout::test
