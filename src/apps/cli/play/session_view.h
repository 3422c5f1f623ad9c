#pragma once

#include <ostream>
#include <string>

#include "apps/cli/play/scripted_host.h"

namespace keyscout {

/// Plays a session and shows it as a person would see it: the comments of the script as headings,
/// what is done in a few words, the text box with its list, events, messages and errors.
class SessionView {
 public:
  /// `styled` where `out` understands terminal escapes.
  SessionView(ScriptedHost& host, std::ostream& out, bool styled)
      : host_(host), out_(out), styled_(styled) {}

  /// Shows a line of the script that is a comment.
  void heading(const std::string& comment);
  /// Runs a command, shows it, and returns its answer.
  Json run(const std::string& line);

 private:
  void showAnswer(const Json& answer);
  void showFocusedControl();
  void showList(const Json& state);
  void line(const std::string& text, std::size_t width);

  ScriptedHost& host_;
  std::ostream& out_;
  std::string styled(const std::string& style, const std::string& text) const;

  bool styled_;
  bool afterHeading_ = false;
  Json lastShown_;
};

}  // namespace keyscout
