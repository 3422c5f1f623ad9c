#include "apps/cli/terminal/progress_bar.h"

#include <algorithm>

namespace keyscout {
namespace {

constexpr std::chrono::milliseconds drawInterval{100};
constexpr std::size_t widestBar = 30;
constexpr std::size_t columnsAroundBar = 8;  // brackets, blanks and the percentage

/// At most `columns` long, since a line that wraps could not be written over in place.
std::string barLine(std::string_view step, std::uint64_t done, std::uint64_t total,
                    std::size_t columns) {
  std::string line{step};
  if (total == 0) return (line + " ...").substr(0, columns);
  const double share = std::min(1.0, static_cast<double>(done) / static_cast<double>(total));
  const std::size_t taken = line.size() + columnsAroundBar;
  const std::size_t barWidth = std::min(widestBar, columns > taken ? columns - taken : 0);
  const auto filled = static_cast<std::size_t>(share * static_cast<double>(barWidth));
  const auto number = std::to_string(static_cast<int>(share * 100));
  const std::string percent = std::string(3 - number.size(), ' ') + number + '%';
  if (barWidth == 0) return (percent + ' ' + line).substr(0, columns);
  return line + " [" + std::string(filled, '#') + std::string(barWidth - filled, '.') + "] " +
         percent;
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
  // A cursor behind the last column may be on the next line already.
  const auto columns = static_cast<std::size_t>(std::max(columns_() - 1, 1));
  const std::string line = barLine(step, done, total, columns);
  if (line != line_) draw(line);
}

/// Writes over the line that is there; blanks behind the new one take away what is left of it.
void ProgressBar::draw(const std::string& line) {
  const std::size_t leftOver = line_.size() > line.size() ? line_.size() - line.size() : 0;
  out_ << '\r' << line << std::string(leftOver, ' ') << std::flush;
  line_ = line;
}

}  // namespace keyscout
