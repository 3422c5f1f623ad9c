#pragma once

#include "platform/widgets.h"

namespace keyscout {

class keyscoutControl;

// Each passes the reports of one widget on to the control's handler for it.

class SurfaceForwarder final : public SurfaceObserver {
 public:
  explicit SurfaceForwarder(keyscoutControl& control) : control_(control) {}

  void resized() override;
  void lostFocus() override;
  void focusLeft() override;

 private:
  keyscoutControl& control_;
};

class TextBoxForwarder final : public TextBoxObserver {
 public:
  explicit TextBoxForwarder(keyscoutControl& control) : control_(control) {}

  void changed() override;
  void keyDown(std::int16_t& keyCode, std::int16_t& shift) override;
  void keyPress(std::int16_t& character) override;
  void keyUp(std::int16_t& keyCode, std::int16_t& shift) override;
  void clicked() override;
  void doubleClicked() override;
  void mouseDown(std::int16_t& button, std::int16_t& shift, float& x, float& y) override;
  void mouseMoved(std::int16_t& button, std::int16_t& shift, float& x, float& y) override;
  void mouseUp(std::int16_t& button, std::int16_t& shift, float& x, float& y) override;
  void gotFocus() override;
  void lostFocus() override;

 private:
  keyscoutControl& control_;
};

class DropDownListForwarder final : public DropDownListObserver {
 public:
  explicit DropDownListForwarder(keyscoutControl& control) : control_(control) {}

  void keyDown(std::int16_t& keyCode, std::int16_t& shift) override;
  void keyUp(std::int16_t& keyCode, std::int16_t& shift) override;
  void clicked() override;
  void editChanged() override;

 private:
  keyscoutControl& control_;
};

}  // namespace keyscout
