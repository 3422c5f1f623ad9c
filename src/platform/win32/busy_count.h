#pragma once

namespace keyscout {

/// Is asked before and after anything runs that a window's owner must not go away under.
class BusyCount {
 public:
  virtual void enter() noexcept = 0;
  /// May destroy the object it is called on.
  virtual void leave() noexcept = 0;

 protected:
  ~BusyCount() = default;
};

/// Busy for as long as it lives.
class Busy {
 public:
  explicit Busy(BusyCount& count) : count_(count) { count_.enter(); }
  ~Busy() { count_.leave(); }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  BusyCount& count_;
};

}  // namespace keyscout
