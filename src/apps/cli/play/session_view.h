#pragma once

#include <ostream>
#include <string>

#include "apps/cli/play/scripted_host.h"
#include "apps/cli/terminal/text_style.h"

namespace keyscout {

/// Plays a session and shows it as a person would see it: the comments of the script as headings,
/// what is done in a few words, the text box with its list, events, messages and errors.
class SessionView {
 public:
  SessionView(const ScriptedHost& host, std::ostream& out, const TextStyle& style)
      : host_(host), out_(out), style_(style) {}

  /// Shows a line of the script that is a comment.
  void heading(const std::string& comment);
  /// Shows a command that was run, its answer, and what the control with the focus looks like now.
  void show(const std::string& command, const Json& answer);

 private:
  void showAnswer(const Json& answer);
  void showFocusedControl();
  void showList(const Json& state);
  void line(const std::string& text, std::size_t width);

  const ScriptedHost& host_;
  std::ostream& out_;
  TextStyle style_;
  bool afterHeading_ = false;
  Json lastShown_;
};

}  // namespace keyscout
