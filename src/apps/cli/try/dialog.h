#pragma once

#include <functional>
#include <string>
#include <vector>

#include "apps/cli/try/screen.h"

namespace keyscout {

/// A box in the middle of the screen, over whatever `background` draws.
class Dialog {
 public:
  Dialog(Screen& screen, std::function<void()> background, std::wstring title,
         std::vector<std::wstring> lines)
      : screen_(screen),
        background_(std::move(background)),
        title_(std::move(title)),
        lines_(std::move(lines)) {}

  /// Waits until a button is chosen: with Enter, a click or the letter that it begins with. Escape
  /// chooses the last one; so do the host's keys where there is but one. Returns its number.
  std::size_t choose(const std::vector<std::wstring>& buttons);

  /// Draws the box with a bar below its lines and does not wait.
  void showProgress(double share);

 private:
  void draw();
  std::vector<std::wstring> wrapped(int width) const;
  void drawButtons(const std::vector<std::wstring>& buttons);

  Screen& screen_;
  std::function<void()> background_;
  std::wstring title_;
  std::vector<std::wstring> lines_;

  Rectangle box_;
  std::size_t chosen_ = 0;
  std::vector<Rectangle> buttonPlaces_;
};

}  // namespace keyscout
