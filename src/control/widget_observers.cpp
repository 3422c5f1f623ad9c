#include "control/widget_observers.h"

#include "control/keyscout_control.h"

namespace keyscout {

using Short = std::int16_t;

void SurfaceObserver::resized() { control_.keyscoutControl_Resize(); }
void SurfaceObserver::lostFocus() { control_.keyscoutControl_LostFocus(); }
void SurfaceObserver::focusLeft() { control_.keyscoutControl_ExitFocus(); }

void TextBoxObserver::changed() { control_.keyscoutText_Change(); }
void TextBoxObserver::keyDown(Short& code, Short& shift) {
  control_.keyscoutText_KeyDown(code, shift);
}
void TextBoxObserver::keyPress(Short& character) { control_.keyscoutText_KeyPress(character); }
void TextBoxObserver::keyUp(Short& code, Short& shift) { control_.keyscoutText_KeyUp(code, shift); }
void TextBoxObserver::clicked() { control_.keyscoutText_Click(); }
void TextBoxObserver::doubleClicked() { control_.keyscoutText_DblClick(); }
void TextBoxObserver::mouseDown(Short& button, Short& shift, float& x, float& y) {
  control_.keyscoutText_MouseDown(button, shift, x, y);
}
void TextBoxObserver::mouseMoved(Short& button, Short& shift, float& x, float& y) {
  control_.keyscoutText_MouseMove(button, shift, x, y);
}
void TextBoxObserver::mouseUp(Short& button, Short& shift, float& x, float& y) {
  control_.keyscoutText_MouseUp(button, shift, x, y);
}
void TextBoxObserver::gotFocus() { control_.keyscoutText_GotFocus(); }
void TextBoxObserver::lostFocus() { control_.keyscoutText_LostFocus(); }

void DropDownListObserver::keyDown(Short& code, Short& shift) {
  control_.keyscoutList_KeyDown(code, shift);
}
void DropDownListObserver::keyUp(Short& code, Short& shift) {
  control_.keyscoutList_KeyUp(code, shift);
}
void DropDownListObserver::clicked() { control_.keyscoutList_Click(); }
void DropDownListObserver::editChanged() { control_.keyscoutList_Change(); }

}  // namespace keyscout
