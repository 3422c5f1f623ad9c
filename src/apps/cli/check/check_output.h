#pragma once

#include <cstdint>
#include <ostream>

#include "apps/cli/check/check_catalog.h"
#include "apps/cli/terminal/text_style.h"

namespace keyscout {

/// Writes findings as they come, so that a long list of them takes no memory, and counts them.
class CheckOutput {
 public:
  explicit CheckOutput(std::ostream& out) : out_(out) {}
  virtual ~CheckOutput() = default;

  void add(const Finding& finding);
  virtual void finish(const CheckSummary& summary) = 0;
  std::uint64_t errors() const { return errors_; }
  std::uint64_t warnings() const { return warnings_; }

 protected:
  virtual void write(const Finding& finding) = 0;
  std::ostream& out() { return out_; }

 private:
  std::ostream& out_;
  std::uint64_t errors_ = 0;
  std::uint64_t warnings_ = 0;
};

/// Lines as compilers print them, which editors know how to follow.
class CheckText final : public CheckOutput {
 public:
  explicit CheckText(std::ostream& out, const TextStyle& style = TextStyle{false})
      : CheckOutput(out), style_(style) {}
  void finish(const CheckSummary& summary) override;

 private:
  void write(const Finding& finding) override;

  TextStyle style_;
};

/// One JSON object: the findings, then the counts.
class CheckJson final : public CheckOutput {
 public:
  explicit CheckJson(std::ostream& out);
  void finish(const CheckSummary& summary) override;

 private:
  void write(const Finding& finding) override;
};

}  // namespace keyscout
