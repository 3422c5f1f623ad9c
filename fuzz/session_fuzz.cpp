// Tables, keys and hosts that act in events: nothing escapes a handler, and what a control holds
// stays in order. The sections of an input are the session, the index, and the tables from 0 on.

#include <array>
#include <tuple>

#include "control/keyscout_control.h"
#include "fuzzed_host.h"
#include "platform/decorators/call_hook.h"
#include "platform/memory/memory_form.h"
#include "platform/memory/memory_surface.h"

using namespace keyscout;

namespace {

/// Makes one call on a widget fail.
class FailingWidgets final : public CallHook {
 public:
  int callsBeforeFailure = -1;

 private:
  void onCall(std::string_view) override {
    if (callsBeforeFailure >= 0 && callsBeforeFailure-- == 0)
      throw platformFailure(PlatformError::fileAccess, u"fuzz");
  }
};

/// Two controls on a form, played on byte by byte, from inside events as well.
class Session {
 public:
  Session(fuzz::FuzzedHost& host, fuzz::FuzzInput script) : host_(host), script_(script) {
    for (Place& place : places_) place.open(*this);
  }

  void play() {
    while (!script_.isAtEnd()) {
      act();
      for (Place& place : places_) place.check();
    }
  }

 private:
  struct Place final : keyscoutControlEvents {
    void open(Session& session) {
      of = &session;
      surface = session.form_.addSurface();
      control.emplace(session.host_.platform, *surface, *this);
    }

    void check() const {
      const auto list = surface->listView();
      if (!list) return;
      fuzz::require(list->redraws, "a list is left without drawing");
      fuzz::require(list->entries.size() <= 1006, "more entries than a list may have");
      fuzz::require(list->selected >= -1 && list->selected < static_cast<int>(list->entries.size()),
                    "the selected entry");
    }

    void Change() override { of->actInEvent(); }
    void needBrand() override { of->actInEvent(); }
    void brandChanged(String& strBrand) override {
      strBrand.clear();
      of->actInEvent();
    }
    void KeyDown(std::int16_t& KeyCode, std::int16_t&) override {
      of->actInEvent();
      if (of->script_.below(8) == 0) KeyCode = 0;
    }
    void KeyUp(std::int16_t&, std::int16_t&) override { of->actInEvent(); }
    void MouseUp(std::int16_t&, std::int16_t&, float&, float&) override { of->actInEvent(); }
    void UpdateKeyscout() override { of->actInEvent(); }

    Session* of = nullptr;
    std::unique_ptr<PlayableSurface> surface;
    std::optional<keyscoutControl> control;
  };

  void actInEvent() {
    if (depth_ == 3 || script_.below(4) != 0) return;
    ++depth_;
    act();
    --depth_;
  }

  void act() {
    static constexpr std::int16_t keys[] = {8, 9, 13, 27, 33, 34, 35, 36, 37, 38, 39, 40, 46};
    Place& place = places_[script_.below(places_.size())];
    keyscoutControl& control = *place.control;
    // What the host calls may fail to the host; what a person does may not fail at all.
    switch (script_.below(20)) {
      case 0: place.surface->resize(static_cast<float>(script_.below(256))); break;
      case 1: form_.leaveFocus(); break;
      case 2: form_.moveFocus(*place.surface, FocusPlace::textBox); break;
      case 3:
        if (place.surface->listView()) form_.moveFocus(*place.surface, FocusPlace::list);
        break;
      case 4: hostCalls([&] { control.setText(word()); }); break;
      case 5: hostCalls([&] { control.doit(); }); break;
      case 6: control.hideList(); break;
      case 7: control.setBrand(word()); break;
      case 8: control.lockKeyscout(); break;
      case 9: host_.controller.setKeyscoutLocked(False); break;
      case 10: host_.controller.setKeyscoutEnabled(script_.below(4) == 0 ? False : True); break;
      case 11: hostCalls([&] { return host_.controller.tryToUnlock(); }); break;
      case 12: host_.controller.resetLastTableNumber(); break;
      case 13: host_.files.readsBeforeFailure = static_cast<int>(script_.below(32)); break;
      case 14: widgets_.callsBeforeFailure = static_cast<int>(script_.below(64)); break;
      case 15: {
        const auto list = place.surface->listView();
        if (!list || list->entries.empty()) break;
        place.surface->click(static_cast<std::int16_t>(script_.below(list->entries.size())));
        break;
      }
      case 16: form_.paste(word()); break;
      case 17:
        place.surface->mouse(MouseReport::up, 1, static_cast<std::int16_t>(script_.below(8)), 1, 1);
        break;
      case 18: {
        const std::int16_t key = keys[script_.below(std::size(keys))];
        const auto shift = static_cast<std::int16_t>(script_.below(4) == 0 ? script_.below(8) : 0);
        for (std::size_t times = 1 + script_.below(12); times != 0; --times) {
          form_.keyDown(key, shift);
          form_.keyUp(key, shift);
        }
        break;
      }
      default: form_.type(windows1252()[script_.character()]); break;
    }
  }

  String word() {
    String text;
    for (std::size_t length = script_.below(8); length != 0; --length)
      text += windows1252()[script_.character()];
    return text;
  }

  template <class Call>
  static void hostCalls(Call&& call) {
    (void)test::errorOf(call);
  }

  fuzz::FuzzedHost& host_;
  fuzz::FuzzInput script_;
  FailingWidgets widgets_;
  MemoryForm form_{&widgets_};
  int depth_ = 0;
  std::array<Place, 2> places_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::FuzzInput input{data, size};
  fuzz::FuzzedHost host;
  host.files.piece = 1 + input.below(200);
  const std::string_view script = input.section();
  host.files.put(u"index", input.section());
  static constexpr StringView tables[] = {u"0.txt", u"1.txt", u"2.txt", u"3.txt"};
  for (const StringView table : tables)
    if (!input.isAtEnd()) host.files.put(table, input.section());
  host.files.put(u"download", "FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]\r\n");
  host.files.put(u"catcontrol.txt", "READY");
  host.files.put(u"brandinfo.txt", "ACME\r\nBOLT\r\n");
  std::ignore = host.controller.init();  // some data is not to be loaded
  host.controller.setKeyscoutEnabled(True);
  Session{host, fuzz::FuzzInput{script}}.play();
  return 0;
}
