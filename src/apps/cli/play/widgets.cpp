#include "apps/cli/play/widgets.h"

#include "platform/memory/memory_form.h"
#ifdef _WIN32
#include "platform/win32/win32_form.h"
#endif

namespace keyscout {

#ifdef _WIN32
bool hasWidgets(Widgets /*widgets*/) { return true; }

std::unique_ptr<PlayableForm> makeForm(Widgets widgets, CallHook& hook) {
  if (widgets == Widgets::win32) return std::make_unique<Win32Form>();
  return std::make_unique<MemoryForm>(&hook);
}
#else
bool hasWidgets(Widgets widgets) { return widgets == Widgets::memory; }

std::unique_ptr<PlayableForm> makeForm(Widgets /*widgets*/, CallHook& hook) {
  return std::make_unique<MemoryForm>(&hook);
}
#endif

}  // namespace keyscout
