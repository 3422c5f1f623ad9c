#pragma once

#include <cstdint>

#include "base/text.h"

namespace keyscout {

/// What a control raises to its host. Override what the host cares for. Arguments by reference are
/// the control's own: what the host leaves in `KeyCode` and `Shift` is what the text box goes on
/// with. The host may call the control's members from inside an event, but must not destroy the
/// control there. An exception that leaves a host's handler is dropped: it is no failure of the
/// control.
class keyscoutControlEvents {
 public:
  virtual ~keyscoutControlEvents() = default;

  virtual void Change() {}
  virtual void brandChanged(String& /*strBrand*/) {}
  /// The moment to set the control's `brand`.
  virtual void needBrand() {}
  virtual void KeyDown(std::int16_t& /*KeyCode*/, std::int16_t& /*Shift*/) {}
  virtual void MouseDown(std::int16_t& /*Button*/, std::int16_t& /*Shift*/, float& /*X*/,
                         float& /*Y*/) {}
  virtual void MouseMove(std::int16_t& /*Button*/, std::int16_t& /*Shift*/, float& /*X*/,
                         float& /*Y*/) {}
  virtual void MouseUp(std::int16_t& /*Button*/, std::int16_t& /*Shift*/, float& /*X*/,
                       float& /*Y*/) {}
  virtual void Click() {}
  virtual void DblClick() {}
  virtual void KeyUp(std::int16_t& /*KeyCode*/, std::int16_t& /*Shift*/) {}
  /// The user wants the catalog updated after a lookup failed.
  virtual void UpdateKeyscout() {}
};

}  // namespace keyscout
