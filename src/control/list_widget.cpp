#include "control/keyscout_control.h"

namespace keyscout {
namespace {

constexpr StringView listName = u"keyscoutList";

}  // namespace

DropDownList& keyscoutControl::list() {
  if (!list_) throw platformFailure(PlatformError::objectNotSet, controlClass);
  return *list_;
}

/// The list's own edit part lies hidden below the text box, so the user sees the text box with a
/// list under it.
void keyscoutControl::createList() {
  if (list_) return;
  list_ = &surface_.addDropDownList(listName, listForwarder_);
  list_->setLeft(textBox_.left());
  list_->setTop(textBox_.top());
  list_->setWidth(textBox_.width());
  list_->setTabStop(False);
  list_->setVisible(True);
  textBox_.bringToFront();
}

void keyscoutControl::removeList() {
  if (!list_) return;
  surface_.removeChild(listName);
  list_ = nullptr;
}

void keyscoutControl::showList() {
  static constexpr Procedure procedure = controlProcedure(u"showList()", u"showList");
  tracer_.traced(
      procedure,
      [&] {
        if (lookup_.fields().tableLoadPending) return;
        sendShowDropDown(true);
        fields_.isListShowing = True;
      },
      [&](const Error& error) { tracer_.report(procedure, error); });
}

void keyscoutControl::hideList() {
  static constexpr Procedure procedure = controlProcedure(u"hideList()", u"hideList");
  const HostCall call{surface_};
  tracer_.traced(
      procedure,
      [&] {
        // A list that closes may report a click, which must not accept its entry. No guard object:
        // a list that could not be closed must not accept, either.
        fields_.suppressAccept = True;
        sendShowDropDown(false);
        fields_.suppressAccept = False;
        fields_.isListShowing = False;
      },
      [&](const Error& error) { tracer_.report(procedure, error); });
}

void keyscoutControl::sendShowDropDown(bool show) {
  if (list_) list_->showDropDown(show);
}

}  // namespace keyscout
