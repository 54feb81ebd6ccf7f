#pragma once

#include <deque>
#include <map>
#include "platform/async/executor.h"

namespace orvane::test {
/// An executor whose time passes only when a test says so: an hour takes no time, and the order
/// of callbacks is the real one's.
class VirtualExecutor final : public Executor {
 public:
  [[nodiscard]] Instant now() const override { return now_; }
  [[nodiscard]] WallTime wallClock() const override { return startOfCalendar_ + sinceStart(); }
  void post(Callback callback) override { queue_.push_back(std::move(callback)); }
  TimerId schedule(Instant when, Callback callback) override;
  void cancel(TimerId timer) override;

  /// Runs what is queued, and what that queues, until nothing is left. Time stands still.
  void runUntilIdle();
  /// Lets time pass; every timer that comes due runs at its own moment.
  void advance(ExecutorClock::duration duration);

  /// The machine is suspended for `duration`: whatever comes due meanwhile runs late, afterwards,
  /// all at the moment of waking.
  void suspend(ExecutorClock::duration duration);

  /// Lets time pass until the next timer is due and runs it, with all that follows from it at that
  /// moment. False when there is no timer.
  bool runNextTimer();

  void setWallClock(WallTime time) { startOfCalendar_ = time - sinceStart(); }
  [[nodiscard]] std::size_t pendingTimers() const { return timers_.size(); }

 private:
  [[nodiscard]] std::chrono::milliseconds sinceStart() const {
    return std::chrono::duration_cast<std::chrono::milliseconds>(now_.time_since_epoch());
  }

  Instant now_{};
  /// 2026-11-16T12:00:00 UTC unless the test sets it.
  WallTime startOfCalendar_ =
      std::chrono::sys_days{std::chrono::year{2026} / 11 / 16} + std::chrono::hours{12};
  std::deque<Callback> queue_;
  std::map<std::pair<Instant, TimerId>, Callback> timers_;
  TimerId lastTimer_ = 0;
};
}  // namespace orvane::test
