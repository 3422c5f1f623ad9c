#pragma once

#include <initializer_list>

#include "control/control_events.h"
#include "server/com/connection_point.h"

namespace keyscout {

/// Raises the control's events to the sinks that hosts have connected. While events are frozen
/// they are dropped.
class EventSource final : public keyscoutControlEvents {
 public:
  explicit EventSource(IConnectionPointContainer& owner);

  ConnectionPoint& point() { return point_; }
  void freeze(bool frozen) { freezes_ += frozen ? 1 : -1; }
  bool isFrozen() const { return freezes_ > 0; }

  void Change() override;
  void brandChanged(String& strBrand) override;
  void needBrand() override;
  void KeyDown(std::int16_t& KeyCode, std::int16_t& Shift) override;
  void MouseDown(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y) override;
  void MouseMove(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y) override;
  void MouseUp(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y) override;
  void Click() override;
  void DblClick() override;
  void KeyUp(std::int16_t& KeyCode, std::int16_t& Shift) override;
  void UpdateKeyscout() override;

 private:
  /// `arguments` in their order; each refers to a variable that a sink may change.
  void raise(DISPID id, std::initializer_list<VARIANT> arguments = {});

  ConnectionPoint point_;
  int freezes_ = 0;
};

}  // namespace keyscout
