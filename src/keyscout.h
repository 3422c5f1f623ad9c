#pragma once

// All that a host on this kind of system needs, in one header: the control, the controller, and
// what the two ask of the world around them, ready made for hosts that bring nothing of their own.

#include "base/error.h"
#include "base/utf8.h"
#include "control/keyscout_control.h"
#include "controller/keyscout_controller.h"
#include "platform/local/local_brand_list.h"
#include "platform/local/local_platform.h"
#include "platform/local/silent_message_box.h"
#include "platform/memory/memory_form.h"
#include "platform/posix/posix_files.h"
#include "shared/error_codes.h"
