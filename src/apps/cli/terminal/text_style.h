#pragma once

#include <string>
#include <string_view>

namespace keyscout {

/// Texts with the escapes that make a terminal show them in a style, or as they are.
class TextStyle {
 public:
  explicit TextStyle(bool isShown) : isShown_(isShown) {}

  std::string strong(std::string_view text) const { return styled("1", text); }
  std::string faint(std::string_view text) const { return styled("2", text); }
  std::string inverse(std::string_view text) const { return styled("7", text); }
  std::string good(std::string_view text) const { return styled("32", text); }
  std::string bad(std::string_view text) const { return styled("1;31", text); }
  std::string doubtful(std::string_view text) const { return styled("1;33", text); }

 private:
  std::string styled(std::string_view code, std::string_view text) const {
    if (!isShown_ || text.empty()) return std::string{text};
    return "\033[" + std::string{code} + 'm' + std::string{text} + "\033[0m";
  }

  bool isShown_;
};

}  // namespace keyscout
