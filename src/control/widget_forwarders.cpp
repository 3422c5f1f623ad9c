#include "control/widget_forwarders.h"

#include "control/keyscout_control.h"

namespace keyscout {

using Short = std::int16_t;

void SurfaceForwarder::resized() { control_.keyscoutControl_Resize(); }
void SurfaceForwarder::lostFocus() { control_.keyscoutControl_LostFocus(); }
void SurfaceForwarder::focusLeft() { control_.keyscoutControl_ExitFocus(); }

void TextBoxForwarder::changed() { control_.keyscoutText_Change(); }
void TextBoxForwarder::keyDown(Short& code, Short& shift) {
  control_.keyscoutText_KeyDown(code, shift);
}
void TextBoxForwarder::keyPress(Short& character) { control_.keyscoutText_KeyPress(character); }
void TextBoxForwarder::keyUp(Short& code, Short& shift) {
  control_.keyscoutText_KeyUp(code, shift);
}
void TextBoxForwarder::clicked() { control_.keyscoutText_Click(); }
void TextBoxForwarder::doubleClicked() { control_.keyscoutText_DblClick(); }
void TextBoxForwarder::mouseDown(Short& button, Short& shift, float& x, float& y) {
  control_.keyscoutText_MouseDown(button, shift, x, y);
}
void TextBoxForwarder::mouseMoved(Short& button, Short& shift, float& x, float& y) {
  control_.keyscoutText_MouseMove(button, shift, x, y);
}
void TextBoxForwarder::mouseUp(Short& button, Short& shift, float& x, float& y) {
  control_.keyscoutText_MouseUp(button, shift, x, y);
}
void TextBoxForwarder::gotFocus() { control_.keyscoutText_GotFocus(); }
void TextBoxForwarder::lostFocus() { control_.keyscoutText_LostFocus(); }

void DropDownListForwarder::keyDown(Short& code, Short& shift) {
  control_.keyscoutList_KeyDown(code, shift);
}
void DropDownListForwarder::keyUp(Short& code, Short& shift) {
  control_.keyscoutList_KeyUp(code, shift);
}
void DropDownListForwarder::clicked() { control_.keyscoutList_Click(); }
void DropDownListForwarder::editChanged() { control_.keyscoutList_Change(); }

}  // namespace keyscout
