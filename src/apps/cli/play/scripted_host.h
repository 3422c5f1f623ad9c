#pragma once

#include <map>
#include <memory>
#include <string>

#include "apps/cli/play/answer.h"
#include "apps/cli/play/event_handlers.h"
#include "apps/cli/play/fault_plan.h"
#include "apps/cli/play/scripted_control.h"
#include "apps/cli/play/widgets.h"
#include "controller/keyscout_controller.h"
#include "platform/decorators/hooked_files.h"
#include "platform/decorators/hooked_trace.h"
#include "platform/local/local_platform.h"
#include "platform/thread_slot.h"

namespace keyscout {

/// A host application that is driven by commands: one controller and any number of controls on one
/// form. One at a time on a thread, whose shared state it owns.
class ScriptedHost {
 public:
  explicit ScriptedHost(Files& files, Widgets widgets = Widgets::memory);
  ScriptedHost(const ScriptedHost&) = delete;
  ScriptedHost& operator=(const ScriptedHost&) = delete;

  /// Runs one command, a JSON object in UTF-8, and answers it.
  Json run(const std::string& line);

  /// The state of the control that has the focus, null where none has it.
  Json focusedState() const;

 private:
  using Command = Json (ScriptedHost::*)(const Json& command);
  static const std::map<std::string, Command>& commands();

  Json dispatch(const Json& command);
  ScriptedControl& named(const Json& command);
  PlayableSurface* focused() const { return form_->focusedSurface(); }

  Json setOnController(const Json& command);
  Json getFromController(const Json& command);
  Json callOnController(const Json& command);
  Json newControl(const Json& command);
  Json freeControl(const Json& command);
  Json setOnControl(const Json& command);
  Json getFromControl(const Json& command);
  Json callOnControl(const Json& command);
  Json resizeControl(const Json& command);
  Json moveFocus(const Json& command);
  Json type(const Json& command);
  Json paste(const Json& command);
  Json pressKey(const Json& command);
  Json click(const Json& command);
  Json mouse(const Json& command);
  Json setHandler(const Json& command);
  Json setAnswer(const Json& command);
  Json planFault(const Json& command);
  Json switchTrace(const Json& command);
  Json state(const Json& command);
  Json shared(const Json& command);

  FreshThreadState freshState_;
  FaultPlan faults_;
  Widgets widgets_;
  std::unique_ptr<PlayableForm> form_;
  HookedFiles files_;
  CommandNotes notes_;
  ScriptedMessageBox messageBox_{notes_};
  std::shared_ptr<CollectingTrace> trace_ = std::make_shared<CollectingTrace>();
  LocalPlatform platform_;
  RWKeyscoutController controller_{platform_};
  EventHandlers handlers_{controller_};
  std::map<std::string, std::unique_ptr<ScriptedControl>> controls_;
  bool showsTrace_ = false;
};

}  // namespace keyscout
