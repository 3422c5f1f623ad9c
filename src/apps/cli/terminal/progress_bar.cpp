#include "apps/cli/terminal/progress_bar.h"

#include <algorithm>

namespace keyscout {
namespace {

constexpr std::chrono::milliseconds drawInterval{100};
constexpr std::size_t barWidth = 30;

std::string barLine(std::string_view step, std::uint64_t done, std::uint64_t total) {
  std::string line{step};
  if (total == 0) return line + " ...";
  const double share = std::min(1.0, static_cast<double>(done) / static_cast<double>(total));
  const auto filled = static_cast<std::size_t>(share * barWidth);
  const auto percent = std::to_string(static_cast<int>(share * 100));
  line += " [" + std::string(filled, '#') + std::string(barWidth - filled, '.') + "] ";
  return line + std::string(3 - percent.size(), ' ') + percent + '%';
}

}  // namespace

ProgressBar::~ProgressBar() {
  if (line_.empty()) return;
  draw("");
  out_ << '\r' << std::flush;
}

void ProgressBar::show(std::string_view step, std::uint64_t done, std::uint64_t total) {
  if (!shown_) return;
  const auto now = std::chrono::steady_clock::now();
  if (now < nextDraw_) return;
  nextDraw_ = now + drawInterval;
  const std::string line = barLine(step, done, total);
  if (line != line_) draw(line);
}

/// Writes over the line that is there; blanks behind the new one take away what is left of it.
void ProgressBar::draw(const std::string& line) {
  const std::size_t leftOver = line_.size() > line.size() ? line_.size() - line.size() : 0;
  out_ << '\r' << line << std::string(leftOver, ' ') << std::flush;
  line_ = line;
}

}  // namespace keyscout
