#pragma once

#include "base/code_page.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/message_box.h"
#include "platform/object_library.h"
#include "platform/text_rules.h"

namespace keyscout {

/// Everything outside the component that is not a widget, chosen by the program at the top. What
/// is referred to here must outlive every controller and control that was given it.
struct Platform {
  Files& files;
  Clock& clock;
  const CodePage& codePage;
  const TextRules& textRules;
  MessageBox& messageBox;
  ObjectLibrary& objectLibrary;
};

}  // namespace keyscout
