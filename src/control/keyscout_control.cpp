#include "control/keyscout_control.h"

#include <limits>

namespace keyscout {
namespace {

std::int16_t to16Bits(std::int32_t value) {
  if (value < std::numeric_limits<std::int16_t>::min() ||
      value > std::numeric_limits<std::int16_t>::max())
    throw platformFailure(PlatformError::overflow, controlClass);
  return static_cast<std::int16_t>(value);
}

}  // namespace

keyscoutControl::keyscoutControl(Platform& platform, ControlSurface& surface,
                                 keyscoutControlEvents& events)
    : platform_(platform),
      surface_(surface),
      textBox_(surface.textBox()),
      events_(events),
      tracer_(platform.objectLibrary),
      lookup_(platform, *this) {
  surface_.setObservers(&surfaceForwarder_, &textBoxForwarder_);
}

keyscoutControl::~keyscoutControl() {
  surface_.setObservers(nullptr, nullptr);
  ignoringFailure([&] { removeList(); });
}

String keyscoutControl::text() const { return textBox_.text(); }

void keyscoutControl::setText(StringView value) {
  const HostCall call{surface_};
  if (!module_->KeyscoutEnabled) {
    textBox_.setText(value);
    return;
  }
  // No guard object: where the text box fails, lookups stay disabled, as the host can see.
  module_->KeyscoutEnabled = False;
  textBox_.setText(value);
  module_->KeyscoutEnabled = True;
}

std::int16_t keyscoutControl::selStart() const { return to16Bits(textBox_.selStart()); }
void keyscoutControl::setSelStart(std::int16_t value) { textBox_.setSelStart(value); }
std::int16_t keyscoutControl::selLength() const { return to16Bits(textBox_.selLength()); }
void keyscoutControl::setSelLength(std::int16_t value) { textBox_.setSelLength(value); }

Boolean keyscoutControl::Enabled() const { return textBox_.enabled(); }
void keyscoutControl::setEnabled(Boolean value) {
  surface_.setEnabled(value);
  textBox_.setEnabled(value);
}

Variant keyscoutControl::ForeColor() const { return textBox_.foreColor(); }
void keyscoutControl::setForeColor(const Variant& value) { textBox_.setForeColor(toInt32(value)); }
Variant keyscoutControl::BackColor() const { return textBox_.backColor(); }
void keyscoutControl::setBackColor(const Variant& value) { textBox_.setBackColor(toInt32(value)); }

Boolean keyscoutControl::FontBold() const { return textBox_.fontBold(); }
void keyscoutControl::setFontBold(Boolean value) { textBox_.setFontBold(value); }

String keyscoutControl::TheToolTipText() const { return textBox_.toolTipText(); }
void keyscoutControl::setTheToolTipText(StringView value) { textBox_.setToolTipText(value); }

Boolean keyscoutControl::Locked() const { return textBox_.readOnly(); }
void keyscoutControl::setLocked(Boolean value) { textBox_.setReadOnly(value); }

void keyscoutControl::setAuthorizedBrands(BrandList* authroizedBrands) {
  module_->authorizedBrands = authroizedBrands ? authroizedBrands->keyedCollection() : nullptr;
}

void keyscoutControl::lockKeyscout() { module_->KeyscoutLocked = True; }

void keyscoutControl::raiseUpdateKeyscout() {
  raise([](auto& host) { host.UpdateKeyscout(); });
}

void keyscoutControl::keyscoutControl_Resize() {
  contained(u"keyscoutControl_Resize", [&] { textBox_.setWidth(surface_.width()); });
}

void keyscoutControl::keyscoutControl_LostFocus() { fields_.isListShowing = False; }

void keyscoutControl::keyscoutControl_ExitFocus() {
  if (fields_.isListShowing) hideList();
  fields_.isListShowing = False;
}

}  // namespace keyscout
