#pragma once

#include <memory>
#include <string>
#include <vector>

#include "apps/cli/play/answer.h"
#include "apps/cli/play/event_handlers.h"
#include "control/keyscout_control.h"
#include "platform/playable.h"

namespace keyscout {

/// A control on the scripted form, and the host's ear for its events.
class ScriptedControl final : private keyscoutControlEvents {
 public:
  ScriptedControl(std::string name, Platform& platform, PlayableForm& form, CommandNotes& notes,
                  EventHandlers& handlers);

  keyscoutControl& control() { return control_; }
  PlayableSurface& surface() { return *surface_; }

  /// Everything there is to see of the control.
  Json state() const;

 private:
  void Change() override { raised("Change"); }
  void brandChanged(String& strBrand) override;
  void needBrand() override { raised("needBrand"); }
  void KeyDown(std::int16_t& KeyCode, std::int16_t& Shift) override;
  void MouseDown(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y) override;
  void MouseMove(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y) override;
  void MouseUp(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y) override;
  void Click() override { raised("Click"); }
  void DblClick() override { raised("DblClick"); }
  void KeyUp(std::int16_t& KeyCode, std::int16_t& Shift) override;
  void UpdateKeyscout() override { raised("UpdateKeyscout"); }

  /// Notes the event and runs its handler; the arguments as the handler leaves them.
  std::vector<EventArgument> raised(const std::string& event,
                                    std::vector<EventArgument> arguments = {});
  void raisedKey(const std::string& event, std::int16_t& keyCode, std::int16_t& shift);
  void raisedMouse(const std::string& event, std::int16_t& button, std::int16_t& shift, float& x,
                   float& y);

  std::string name_;
  CommandNotes& notes_;
  EventHandlers& handlers_;
  std::unique_ptr<PlayableSurface> surface_;
  keyscoutControl control_;
};

}  // namespace keyscout
