#pragma once

#include <cstdint>

#include "base/text.h"

namespace keyscout {

/// Message box styles, added together, and the buttons it answers with.
namespace MessageBoxStyle {
inline constexpr std::int32_t yesNo = 4;
inline constexpr std::int32_t information = 64;
}  // namespace MessageBoxStyle

enum class MessageBoxButton : std::int32_t { yes = 6, no = 7 };

class MessageBox {
 public:
  virtual ~MessageBox() = default;

  /// Shows a modal message box and waits for its answer. Moves no focus of the form.
  virtual MessageBoxButton show(StringView text, std::int32_t style, StringView title) = 0;
};

}  // namespace keyscout
