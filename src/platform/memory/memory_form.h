#pragma once

#include <cstdint>
#include <string_view>

#include "base/text.h"
#include "platform/decorators/call_hook.h"
#include "platform/focus_tracker.h"
#include "platform/playable.h"

namespace keyscout {

class MemorySurface;

/// A form without a screen.
class MemoryForm final : public PlayableForm {
 public:
  /// `hook`, where there is one, is told of every call that code makes on a widget.
  explicit MemoryForm(CallHook* hook = nullptr) : hook_(hook) {}
  MemoryForm(const MemoryForm&) = delete;
  MemoryForm& operator=(const MemoryForm&) = delete;

  FocusTracker& focusTracker() { return tracker_; }
  void onCall(std::string_view operation) {
    if (hook_) hook_->onCall(operation);
  }

  std::unique_ptr<PlayableSurface> addSurface() override;
  PlayableSurface* focusedSurface() const override;
  void moveFocus(PlayableSurface& surface, FocusPlace place) override;
  void leaveFocus() override { tracker_.leave(); }
  void type(char16_t character) override;
  void keyDown(std::int16_t keyCode, std::int16_t shift) override;
  void keyUp(std::int16_t keyCode, std::int16_t shift) override;
  void paste(StringView text) override;

  /// A key down with any `character`, 0 for none: for hosts whose keyboards know more key codes.
  void keyDown(std::int16_t keyCode, std::int16_t shift, char16_t character);

 private:
  MemorySurface* focused() const;

  FocusTracker tracker_;
  CallHook* hook_;
};

}  // namespace keyscout
