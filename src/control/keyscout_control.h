#pragma once

#include <cstdint>

#include "base/variant.h"
#include "control/control_events.h"
#include "control/control_fields.h"
#include "control/widget_forwarders.h"
#include "lookup/lookup_client.h"
#include "lookup/lookup_engine.h"
#include "platform/brand_list.h"
#include "platform/platform.h"
#include "platform/widgets.h"
#include "shared/keyscout_module.h"
#include "shared/tracer.h"

namespace keyscout {

/// The lookup control: a text box, and while it has the focus or is dropped down a list of catalog
/// numbers below it. All controls on a thread share the state that `RWKeyscoutController` fills.
///
/// Handlers of widget reports let no failure out. Of the members that the host calls, those that
/// reach a widget fail with the widget's error. A control that outlives the state of its thread, as
/// a static object does on the main thread, looks nothing up any more, and members that read or
/// change that state fail with object not set (91).
class keyscoutControl : private LookupClient {
 public:
  /// Takes the place of `surface`'s observer until it is destroyed. All three must outlive it.
  keyscoutControl(Platform& platform, ControlSurface& surface, keyscoutControlEvents& events);
  ~keyscoutControl() override;
  keyscoutControl(const keyscoutControl&) = delete;
  keyscoutControl& operator=(const keyscoutControl&) = delete;

  // Properties

  String text() const;
  /// Starts no lookup: lookups are disabled on the whole thread while the text is written, and
  /// remain so where that fails.
  void setText(StringView value);

  /// In UTF-16 code units; getting fails with overflow (6) beyond 32767, setting a negative value
  /// with invalid property value (380).
  std::int16_t selStart() const;
  void setSelStart(std::int16_t value);
  std::int16_t selLength() const;
  void setSelLength(std::int16_t value);

  Boolean Enabled() const;
  void setEnabled(Boolean value);
  /// Colours of the text box as 32-bit numbers; a value that is none fails with type mismatch (13).
  Variant ForeColor() const;
  void setForeColor(const Variant& value);
  Variant BackColor() const;
  void setBackColor(const Variant& value);
  Boolean FontBold() const;
  void setFontBold(Boolean value);
  String TheToolTipText() const;
  void setTheToolTipText(StringView value);
  Boolean isListShowing() const { return fields_.isListShowing; }
  /// The user cannot edit the text; unrelated to the lock of lookups.
  Boolean Locked() const;
  void setLocked(Boolean value);
  const String& brand() const { return fields_.brand; }
  void setBrand(StringView value) { fields_.brand = value; }

  // Methods

  /// Closes the drop-down list. Never fails.
  void hideList() override;
  /// Sets the brands that every control on the thread may list; null for all. Fails with type
  /// mismatch (13) where the object is no keyed collection, and changes nothing then.
  void setAuthorizedBrands(BrandList* authroizedBrands);
  /// Stops lookups in every control on the thread until the controller lifts the lock.
  void lockKeyscout();
  /// Accepts the selected entry: raises `brandChanged`, writes its number into the text box and
  /// closes the list. Nothing happens while no entry is selected or accepting is suppressed. Fails
  /// with the widget's or the collection's error.
  void doit();

  // What a host's developer wants to see while debugging

  const ControlFields& fields() const { return fields_; }
  const LookupFields& lookupFields() const { return lookup_.fields(); }
  /// The list widget, null while the control has none.
  const DropDownList* keyscoutList() const { return list_; }

 private:
  // What the widgets and the surface report, each called by its forwarder alone.
  friend class SurfaceForwarder;
  friend class TextBoxForwarder;
  friend class DropDownListForwarder;
  void keyscoutControl_Resize();
  void keyscoutControl_LostFocus();
  void keyscoutControl_ExitFocus();
  void keyscoutText_Change();
  void keyscoutText_KeyDown(std::int16_t& KeyCode, std::int16_t& Shift);
  void keyscoutText_KeyPress(std::int16_t& KeyAscii);
  void keyscoutText_KeyUp(std::int16_t& KeyCode, std::int16_t& Shift);
  void keyscoutText_Click();
  void keyscoutText_DblClick();
  void keyscoutText_MouseDown(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y);
  void keyscoutText_MouseMove(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y);
  void keyscoutText_MouseUp(std::int16_t& Button, std::int16_t& Shift, float& X, float& Y);
  void keyscoutText_GotFocus();
  void keyscoutText_LostFocus();
  void keyscoutList_KeyDown(std::int16_t& KeyCode, std::int16_t& Shift);
  void keyscoutList_KeyUp(std::int16_t& KeyCode, std::int16_t& Shift);
  void keyscoutList_Change();
  void keyscoutList_Click();

  // LookupClient
  DropDownList& list() override;
  String typedText() const override { return textBox_.text(); }
  void showList() override;
  void raiseUpdateKeyscout() override;

  // list_widget.cpp
  void createList();
  void removeList();
  void sendShowDropDown(bool show);

  // text_handlers.cpp, list_handlers.cpp
  void lookUpText();
  bool mayUseList() const;
  void answerTextKey(std::int16_t keyCode, std::int16_t shift);
  void answerListKey(std::int16_t keyCode, std::int16_t shift);
  void extendList(std::int16_t lastEntry);
  void acceptSelectedEntry();
  void returnToText();
  void closeAndLock();

  /// Raises an event to the host, whose failures stay its own.
  template <class Event>
  void raise(Event&& event) {
    ignoringFailure([&] { event(events_); });
  }

  /// Runs a handler that catches nothing itself: what fails in it is traced under `name` and stops
  /// here, since a widget has no use for it.
  template <class Body>
  void contained(StringView name, Body&& body) {
    handlingFailure(
        body, [&](const Error& error) { tracer_.report(controlProcedure(name, name), error); });
  }

  Platform& platform_;
  ControlSurface& surface_;
  TextBox& textBox_;
  keyscoutControlEvents& events_;
  SharedState module_;
  Tracer tracer_;
  ControlFields fields_;
  LookupEngine lookup_;
  DropDownList* list_ = nullptr;  // owned by the surface
  bool wantsList_ = false;        // while the text box has the focus

  SurfaceForwarder surfaceForwarder_{*this};
  TextBoxForwarder textBoxForwarder_{*this};
  DropDownListForwarder listForwarder_{*this};
};

}  // namespace keyscout
