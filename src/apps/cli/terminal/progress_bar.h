#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

#include "apps/cli/terminal/standard_stream.h"

namespace keyscout {

/// Shows on one line of a terminal how far a long task has come: a step's name, a bar and a
/// percentage. The line is written over in place, at most ten times a second and only where it
/// differs, and is blank again when the object is destroyed.
class ProgressBar {
 public:
  /// Writes nothing at all unless `shown`. `out` must outlive the bar. `columns`, asked at every
  /// drawing, tells how many the terminal has.
  ProgressBar(
      std::ostream& out, bool shown,
      std::function<int()> columns = [] { return terminalColumns(StandardStream::error); })
      : out_(out), shown_(shown), columns_(std::move(columns)) {}
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  /// `done` of `total` parts of `step` are done; a `total` of 0 means that nobody knows.
  void show(std::string_view step, std::uint64_t done, std::uint64_t total);

 private:
  void draw(const std::string& line);

  std::ostream& out_;
  bool shown_;
  std::function<int()> columns_;
  std::string line_;
  std::chrono::steady_clock::time_point nextDraw_{};
};

}  // namespace keyscout
