#include "platform/win32/win32_form.h"
#include "support/toolkit.h"

namespace keyscout::test {

// Real widgets tell nobody of the calls on them.
std::unique_ptr<PlayableForm> makeForm(CallHook* /*hook*/) { return std::make_unique<Win32Form>(); }

}  // namespace keyscout::test
