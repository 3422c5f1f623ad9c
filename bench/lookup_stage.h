#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "control/keyscout_control.h"
#include "controller/keyscout_controller.h"
#include "platform/local/local_platform.h"
#include "platform/memory/memory_form.h"
#include "platform/posix/posix_files.h"
#include "platform/thread_slot.h"

namespace keyscout::bench {

/// A control in service on widgets in memory, with a trace that goes nowhere.
class LookupStage {
 public:
  explicit LookupStage(const std::filesystem::path& directory);

  /// Replaces the text in one change, which starts a lookup.
  void enter(const std::string& text);
  void type(char character) { form_.type(static_cast<char16_t>(character)); }
  void press(std::int16_t keyCode);
  void focusText() { form_.moveFocus(*surface_, FocusPlace::textBox); }
  void setBrand(const std::string& brand);

  std::vector<std::string> entries() const;
  std::int16_t currentTable() const { return control_.lookupFields().currentTableIndex; }

 private:
  class Box final : public MessageBox {
    MessageBoxButton show(StringView text, std::int32_t style, StringView title) override;
  };

  FreshThreadState freshState_;
  PosixFiles files_;
  Box box_;
  LocalPlatform platform_{files_, box_};
  RWKeyscoutController controller_{platform_};
  MemoryForm form_;
  std::unique_ptr<PlayableSurface> surface_;
  keyscoutControlEvents events_;
  keyscoutControl control_;
};

}  // namespace keyscout::bench
