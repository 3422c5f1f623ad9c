#pragma once

#include <cstddef>
#include <deque>
#include <string>

namespace keyscout {

/// The latest events of all controls, as lines of text.
class EventLog {
 public:
  /// `source` raised `event`, whose arguments are written as they are to be read.
  void add(const std::string& source, const std::string& event, const std::string& arguments = {}) {
    lines_.push_back({source, event, arguments});
    if (lines_.size() > maxLines) lines_.pop_front();
  }

  struct Line {
    std::string source;
    std::string event;
    std::string arguments;
  };
  const std::deque<Line>& lines() const { return lines_; }

 private:
  static constexpr std::size_t maxLines = 500;

  std::deque<Line> lines_;
};

}  // namespace keyscout
