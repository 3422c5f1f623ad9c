#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "control/keyscout_control.h"
#include "controller/keyscout_controller.h"
#include "platform/decorators/hooked_files.h"
#include "platform/decorators/hooked_trace.h"
#include "platform/local/local_brand_list.h"
#include "platform/local/local_library.h"
#include "platform/local/native_files.h"
#include "platform/local/portable_text_rules.h"
#include "platform/local/trace_services.h"
#include "platform/playable.h"
#include "platform/thread_slot.h"
#include "support/data_directory.h"
#include "support/error_of.h"
#include "support/toolkit.h"

namespace keyscout::test {

using Strings = std::vector<std::string>;

/// A clock that a test sets.
class FixedClock final : public Clock {
 public:
  std::chrono::sys_seconds now() override { return time; }
  std::chrono::sys_seconds time{};
};

/// Answers with the button that a test chose, and keeps the texts.
class AnsweringBox final : public MessageBox {
 public:
  MessageBoxButton show(StringView text, std::int32_t style, StringView title) override;

  MessageBoxButton answer = MessageBoxButton::no;
  std::vector<String> texts;
  std::int32_t lastStyle = 0;
  String lastTitle;
};

/// Notes the events of one control as "Name(argument, ...)" and lets a test answer them.
class EventLog final : public keyscoutControlEvents {
 public:
  /// What to do inside an event, by its name.
  std::map<std::string, std::function<void()>> handlers;
  /// What the host writes back to the code of a key that goes down; unchanged where it is negative.
  int keyCodeToWriteBack = -1;

  Strings take() { return std::exchange(events_, {}); }

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

  void raised(const std::string& name, const std::string& arguments = "");

  Strings events_;
};

/// One control on a form, as a host has it and a person sees it.
struct StagedControl {
  StagedControl(Platform& platform, PlayableForm& form)
      : surface(form.addSurface()), control(platform, *surface, events) {
    surface->whenListIsClosed([this] { control.hideList(); });
  }

  /// What stands in the list; empty while there is none.
  Strings entries() const;
  int selected() const;
  bool isDropped() const;
  std::string text() const;

  EventLog events;
  std::unique_ptr<PlayableSurface> surface;
  keyscoutControl control;
};

/// A host with a controller and a form, on a data directory. The shared state starts afresh.
class Stage {
 public:
  explicit Stage(CallHook* hook = nullptr);

  /// Sets the three settings for `directory`.
  void configure(const DataDirectory& directory);
  /// Configures, starts up and enables lookups.
  void start(const DataDirectory& directory);

  std::unique_ptr<StagedControl> addControl() {
    return std::make_unique<StagedControl>(platform, *form);
  }
  void focus(StagedControl& control, FocusPlace place = FocusPlace::textBox) {
    form->moveFocus(*control.surface, place);
  }
  void type(StringView text) {
    for (const char16_t character : text) form->type(character);
  }
  void press(std::int16_t keyCode, std::int16_t shift = 0);

  /// The trace since the last call, each as "> Name", "< Name", "! Name number" or "- text".
  Strings takeTrace();

  FreshThreadState freshState;
  NativeFiles nativeFiles;
  FixedClock clock;
  PortableTextRules textRules;
  AnsweringBox box;
  std::shared_ptr<CollectingTrace> trace = std::make_shared<CollectingTrace>();
  // Only there when calls go by a hook.
  std::unique_ptr<HookedFiles> hookedFiles;
  LocalLibrary library;
  Platform platform;
  RWKeyscoutController controller;
  std::unique_ptr<PlayableForm> form;

 private:
  Files& files() { return hookedFiles ? static_cast<Files&>(*hookedFiles) : nativeFiles; }
};

keyscoutModule& shared();

}  // namespace keyscout::test
