#pragma once

#include "platform/async/executor.h"
#include "platform/async/task.h"

namespace orvane {
/// Runs a callback once, after a delay, unless it is destroyed before. The callback may destroy it.
class OneShotTimer {
 public:
  OneShotTimer(Executor& executor, ExecutorClock::duration delay, Executor::Callback callback);
  OneShotTimer(const OneShotTimer&) = delete;
  OneShotTimer& operator=(const OneShotTimer&) = delete;
  ~OneShotTimer();

 private:
  Executor& executor_;
  Executor::TimerId timer_;
};

/// Runs a callback again and again, first after one interval, until it is destroyed. The callback
/// may destroy it. Intervals that passed while the machine was suspended count as one.
class RepeatingTimer {
 public:
  RepeatingTimer(Executor& executor, ExecutorClock::duration interval, Executor::Callback callback);
  RepeatingTimer(const RepeatingTimer&) = delete;
  RepeatingTimer& operator=(const RepeatingTimer&) = delete;
  ~RepeatingTimer();

 private:
  void arm();
  void fire();

  Executor& executor_;
  ExecutorClock::duration interval_;
  Executor::Callback callback_;
  Executor::TimerId timer_ = 0;
};

/// Why a sleep is over: its moment has come, or the sleeping task was cancelled before.
enum class SleepEnd { elapsed, cancelled };

/// Suspends the task until `when`; a moment that has passed does not suspend it.
[[nodiscard]] Task<SleepEnd> sleepUntil(Instant when);

/// Suspends the task for `duration`, counted from now.
[[nodiscard]] Task<SleepEnd> sleepFor(ExecutorClock::duration duration);
}  // namespace orvane
