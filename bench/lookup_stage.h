#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "control/keyscout_control.h"
#include "controller/keyscout_controller.h"
#include "platform/local/local_platform.h"
#include "platform/memory/memory_form.h"
#include "platform/thread_slot.h"

namespace keyscout::bench {

/// A control in service on widgets in memory, with a trace that goes nowhere.
class LookupStage {
 public:
  /// `files` must outlive the object.
  LookupStage(const std::filesystem::path& directory, Files& files);

  /// Replaces the text in one change, which starts a lookup.
  void enter(const std::string& text);
  void type(char character) { form_.type(static_cast<char16_t>(character)); }
  void press(std::int16_t keyCode);
  void focusText() { form_.moveFocus(*surface_, FocusPlace::textBox); }
  /// None: everything may be listed. One: the control's brand. More: the authorized brands.
  void setBrands(const std::vector<std::string>& brands);

  std::vector<std::string> entries() const;

 private:
  class Box final : public MessageBox {
    MessageBoxButton show(StringView text, std::int32_t style, StringView title) override;
  };

  FreshThreadState freshState_;
  Box box_;
  LocalPlatform platform_;
  RWKeyscoutController controller_{platform_};
  MemoryForm form_;
  std::unique_ptr<PlayableSurface> surface_;
  keyscoutControlEvents events_;
  keyscoutControl control_;
};

}  // namespace keyscout::bench
