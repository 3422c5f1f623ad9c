#pragma once

#include <deque>

namespace keyscout {

/// The places in a control that can have the focus.
enum class FocusPlace { textBox, list, surface };

/// What a change of focus means to one control.
class FocusObserver {
 public:
  virtual ~FocusObserver() = default;

  virtual void textBoxGotFocus() noexcept = 0;
  virtual void textBoxLostFocus() noexcept = 0;
  virtual void surfaceLostFocus() noexcept = 0;
  virtual void focusLeft() noexcept = 0;
};

/// Knows which place of which control on a form has the focus, and keeps the order of focus
/// reports for every toolkit: a move takes effect at once; its reports wait until the outermost
/// handler, or call of the host, has returned and then come in the order of the moves, a loss
/// before the gain. Moves that cancel out are reported all the same.
///
/// Input that comes while a handler runs means that somebody runs a message loop inside it, as a
/// host with a modal form in an event does. The person before that loop sees the focus where it
/// is, so what waits is delivered then, and nothing waits for that handler any more.
class FocusTracker {
 public:
  struct Focus {
    FocusObserver* control = nullptr;
    FocusPlace place = FocusPlace::surface;
    friend bool operator==(const Focus&, const Focus&) = default;
  };

  /// While one of these lives, reports wait; the end of the outermost delivers them, those that the
  /// delivery itself gives rise to included.
  class [[nodiscard]] Hold {
   public:
    explicit Hold(FocusTracker& tracker) : tracker_(tracker) { tracker_.hold(); }
    ~Hold() { tracker_.release(); }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;

   private:
    FocusTracker& tracker_;
  };

  void hold() { ++depth_; }
  void release() noexcept;

  /// To be called before each report of a key, a character or the mouse, and before a change that
  /// the person makes to a text.
  void inputArrives() noexcept;

  /// No control in particular has the focus: `{}`. Giving it to what has it reports nothing.
  Focus focus() const { return focus_; }
  bool has(const FocusObserver& control, FocusPlace place) const {
    return focus_.control == &control && focus_.place == place;
  }

  /// Moves the focus; outside of any handler the reports come before this returns.
  void moveTo(FocusObserver& control, FocusPlace place);
  void leave();

  /// The list of `control` was removed: where it had the focus nothing has it now, and of a list
  /// that is gone only that the focus left is reported.
  void listRemoved(FocusObserver& control);

  /// `control` is going: it loses the focus and gets no report any more.
  void forget(FocusObserver& control);

 private:
  struct Report {
    FocusObserver* control;
    void (FocusObserver::*deliver)() noexcept;
  };

  void change(Focus next);
  void deliver() noexcept;

  Focus focus_;
  std::deque<Report> waiting_;
  int depth_ = 0;  // of the handlers that reports wait for
};

}  // namespace keyscout
