#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "apps/cli/host/catalog_host.h"
#include "apps/cli/try/event_log.h"
#include "control/keyscout_control.h"

namespace keyscout {

/// A lookup control on the form, and the host's answers to its events.
class LookupField final : private keyscoutControlEvents {
 public:
  /// What the host does in events that concern the whole form.
  struct Host {
    EventLog& log;
    std::function<String()> brand;
    std::function<void()> updateWanted;
  };

  LookupField(CatalogHost& catalog, std::string name, Host host)
      : name_(std::move(name)),
        host_(std::move(host)),
        surface_(catalog.form().addSurface()),
        control_(catalog.platform(), *surface_, *this) {}

  const std::string& name() const { return name_; }
  PlayableSurface& surface() { return *surface_; }
  const PlayableSurface& surface() const { return *surface_; }
  keyscoutControl& control() { return control_; }
  const keyscoutControl& control() const { return control_; }
  /// The brand of the number that was accepted, empty once its text is edited.
  const String& acceptedBrand() const { return acceptedBrand_; }

 private:
  void Change() override;
  void brandChanged(String& strBrand) override;
  void needBrand() override;
  void KeyDown(std::int16_t& KeyCode, std::int16_t& Shift) override;
  void KeyUp(std::int16_t& KeyCode, std::int16_t& Shift) override;
  void MouseDown(std::int16_t& Button, std::int16_t&, float&, float&) override;
  void MouseUp(std::int16_t& Button, std::int16_t&, float&, float&) override;
  void Click() override { host_.log.add(name_, "Click"); }
  void DblClick() override { host_.log.add(name_, "DblClick"); }
  void UpdateKeyscout() override;

  std::string name_;
  Host host_;
  String acceptedBrand_;
  std::optional<String> acceptedText_;
  std::unique_ptr<PlayableSurface> surface_;
  keyscoutControl control_;
};

}  // namespace keyscout
