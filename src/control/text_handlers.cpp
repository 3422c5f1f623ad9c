#include "control/keyscout_control.h"

namespace keyscout {

void keyscoutControl::keyscoutText_Change() {
  static constexpr Procedure procedure =
      controlProcedure(u"keyscoutText_Change()", u"keyscoutText_Change");
  tracer_.traced(
      procedure,
      [&] {
        raise([](auto& host) { host.needBrand(); });
        if (!module_->KeyscoutLocked) {
          if (!fields_.skipNextLookup) lookUpText();
          fields_.skipNextLookup = False;
        }
        raise([](auto& host) { host.Change(); });
      },
      [&](const Error& error) {
        tracer_.report(procedure, error);
        closeAndLock();
      });
}

void keyscoutControl::lookUpText() {
  surface_.setMousePointer(0);
  // Lookups move and clear the list's selection; no report of that may accept an entry. No guard
  // object: after a failure the flag holds until the list is closed.
  fields_.suppressAccept = True;
  String text = textBox_.text();
  // A list that could not be made when the focus came is made when it is needed.
  if (wantsList_) contained(u"keyscoutText_Change", [&] { createList(); });
  if (text.empty()) {
    lookup_.clearEndOfCatalogReached();
    hideList();
  } else if (list_ && module_->KeyscoutEnabled && module_->isKeyscoutAuthenticated) {
    // Without a list the text came from elsewhere than from a person before it: a dictation, a form
    // that is filled in.
    lookup_.keyInKeyscout(text, fields_.brand);
  }
  fields_.suppressAccept = False;
}

bool keyscoutControl::mayUseList() const {
  return fields_.isListShowing && module_->KeyscoutEnabled && module_->isKeyscoutAuthenticated &&
         lookup_.fields().listLoaded;
}

void keyscoutControl::keyscoutText_KeyDown(std::int16_t& KeyCode, std::int16_t& Shift) {
  static constexpr Procedure procedure =
      controlProcedure(u"keyscoutText_KeyDown()", u"keyscoutText_KeyDown");
  tracer_.traced(
      procedure,
      [&] {
        if (Shift == Modifier::alt && fields_.isListShowing) hideList();
        if (!module_->KeyscoutLocked) answerTextKey(KeyCode, Shift);
        if (!fields_.suppressKeyDownEvent) raise([&](auto& host) { host.KeyDown(KeyCode, Shift); });
        fields_.suppressKeyDownEvent = False;
      },
      [&](const Error& error) {
        closeAndLock();
        tracer_.report(procedure, error);
      });
}

void keyscoutControl::answerTextKey(std::int16_t keyCode, std::int16_t shift) {
  if (shift != 0 || !mayUseList()) return;
  switch (keyCode) {
    case KeyCodes::down:
      list().setFocus();
      list().select(0);
      break;
    case KeyCodes::up: hideList(); break;
    case KeyCodes::enter:
      if (list().selectedIndex() < 0) {
        hideList();
        break;
      }
      fields_.suppressAccept = False;
      doit();
      fields_.suppressAccept = True;
      fields_.suppressKeyDownEvent = True;
      break;
    default: break;
  }
}

void keyscoutControl::keyscoutText_KeyPress(std::int16_t& KeyAscii) {
  if (KeyAscii == u'\r') KeyAscii = 0;
}

void keyscoutControl::keyscoutText_KeyUp(std::int16_t& KeyCode, std::int16_t& Shift) {
  fields_.suppressAccept = True;
  raise([&](auto& host) { host.KeyUp(KeyCode, Shift); });
}

void keyscoutControl::keyscoutText_Click() {
  raise([](auto& host) { host.Click(); });
}

void keyscoutControl::keyscoutText_DblClick() {
  raise([](auto& host) { host.DblClick(); });
}

void keyscoutControl::keyscoutText_MouseDown(std::int16_t& Button, std::int16_t& Shift, float& X,
                                             float& Y) {
  raise([&](auto& host) { host.MouseDown(Button, Shift, X, Y); });
}

void keyscoutControl::keyscoutText_MouseMove(std::int16_t& Button, std::int16_t& Shift, float& X,
                                             float& Y) {
  raise([&](auto& host) { host.MouseMove(Button, Shift, X, Y); });
}

void keyscoutControl::keyscoutText_MouseUp(std::int16_t& Button, std::int16_t& Shift, float& X,
                                           float& Y) {
  raise([&](auto& host) { host.MouseUp(Button, Shift, X, Y); });
  if (fields_.isListShowing) hideList();
}

void keyscoutControl::keyscoutText_GotFocus() {
  wantsList_ = true;
  contained(u"keyscoutText_GotFocus", [&] { createList(); });
  fields_.suppressAccept = False;
}

void keyscoutControl::keyscoutText_LostFocus() {
  wantsList_ = false;
  // With the list dropped down the focus moves into it, and the list stays.
  if (!fields_.isListShowing) contained(u"keyscoutText_LostFocus", [&] { removeList(); });
  fields_.suppressAccept = False;
}

}  // namespace keyscout
