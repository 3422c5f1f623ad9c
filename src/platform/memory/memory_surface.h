#pragma once

#include <memory>

#include "platform/focus_tracker.h"
#include "platform/memory/memory_form.h"
#include "platform/memory/memory_list.h"
#include "platform/memory/memory_text_box.h"
#include "platform/widgets.h"

namespace keyscout {

/// The place of one control on a form in memory.
class MemorySurface final : public PlayableSurface, private FocusObserver {
 public:
  explicit MemorySurface(MemoryForm& form) : form_(form), textBox_(form, *this, width_) {}
  ~MemorySurface() override { form_.focusTracker().forget(*this); }
  MemorySurface(const MemorySurface&) = delete;
  MemorySurface& operator=(const MemorySurface&) = delete;

  void setObservers(SurfaceObserver* surface, TextBoxObserver* textBox) override;
  MemoryTextBox& textBox() override { return textBox_; }
  DropDownList& addDropDownList(StringView name, DropDownListObserver& observer) override;
  void removeChild(StringView name) override;
  float width() const override { return width_; }
  // Of the surface itself and of the pointer nothing is to be seen here.
  void setEnabled(Boolean) override {}
  void setMousePointer(std::int16_t) override {}
  void beginHostCall() override { form_.focusTracker().hold(); }
  void endHostCall() noexcept override { form_.focusTracker().release(); }

  bool hasList() const { return list_ != nullptr; }

  std::optional<ListView> listView() const override;
  std::optional<FocusPlace> focusPlace() const override;
  void resize(float width) override;
  void click(std::int16_t entry) override;
  void mouse(MouseReport report, std::int16_t button, std::int16_t shift, float x,
             float y) override;

 private:
  friend class MemoryForm;

  bool keyDown(FocusPlace place, std::int16_t keyCode, std::int16_t shift);
  void keyPress(FocusPlace place, char16_t character);
  void keyUp(FocusPlace place, std::int16_t keyCode, std::int16_t shift);

  // FocusObserver
  void textBoxGotFocus() noexcept override;
  void textBoxLostFocus() noexcept override;
  void surfaceLostFocus() noexcept override;
  void focusLeft() noexcept override;

  MemoryForm& form_;
  SurfaceObserver* observer_ = nullptr;
  float width_ = 100;
  MemoryTextBox textBox_;
  String listName_;
  std::shared_ptr<MemoryList> list_;  // shared with the key that is being worked on
};

}  // namespace keyscout
