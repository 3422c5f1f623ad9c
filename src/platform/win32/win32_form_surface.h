#pragma once

#include "platform/playable.h"
#include "platform/win32/win32_form.h"
#include "platform/win32/win32_surface.h"

namespace keyscout {

/// The place of one control on a form of real widgets. A click of the mouse reports the press and
/// the release that it is made of as well, and the release of the left button over the text box
/// reports a click.
class Win32FormSurface final : public PlayableSurface, private SurfaceOwner {
 public:
  /// At `corner` in the pixels of `form`.
  Win32FormSurface(Win32Form& form, POINT corner);
  ~Win32FormSurface() override;
  Win32FormSurface(const Win32FormSurface&) = delete;
  Win32FormSurface& operator=(const Win32FormSurface&) = delete;

  void takeFocus(FocusPlace place);
  void paste(StringView text);

  // PlayableSurface
  std::optional<ListView> listView() const override;
  std::optional<FocusPlace> focusPlace() const override;
  void resize(float width) override;
  void click(std::int16_t entry) override;
  void mouse(MouseReport report, std::int16_t button, std::int16_t shift, float x,
             float y) override;
  void whenListIsClosed(const std::function<void()>& tell) override { tellClosed_ = tell; }

  // ControlSurface
  void setObservers(SurfaceObserver* surface, TextBoxObserver* textBox) override {
    surface_.setObservers(surface, textBox);
  }
  Win32TextBox& textBox() override { return surface_.textBox(); }
  DropDownList& addDropDownList(StringView name, DropDownListObserver& observer) override {
    return surface_.addDropDownList(name, observer);
  }
  void removeChild(StringView name) override { surface_.removeChild(name); }
  float width() const override { return surface_.width(); }
  void setEnabled(Boolean enabled) override { surface_.setEnabled(enabled); }
  void setMousePointer(std::int16_t shape) override { surface_.setMousePointer(shape); }
  void beginHostCall() override { surface_.beginHostCall(); }
  void endHostCall() noexcept override { surface_.endHostCall(); }

 private:
  // SurfaceOwner: whoever plays destroys no surface from inside its reports.
  void workBegins() noexcept override {}
  void workEnds() noexcept override {}
  void listClosedByUser() noexcept override {
    if (tellClosed_) tellClosed_();
  }
  void wantedKeysChanged() noexcept override {}
  void windowDestroyed() noexcept override {}
  void focusCame() noexcept override {}
  void focusLeft() noexcept override {}

  Win32Form& form_;
  std::function<void()> tellClosed_;
  Win32Surface surface_{*this};
};

}  // namespace keyscout
