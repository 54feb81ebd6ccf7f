#include "support/virtual_executor.h"
#include <algorithm>

namespace orvane::test {
Executor::TimerId VirtualExecutor::schedule(Instant when, Callback callback) {
  timers_.emplace(std::pair{std::max(when, now_), ++lastTimer_}, std::move(callback));
  return lastTimer_;
}

void VirtualExecutor::cancel(TimerId timer) {
  std::erase_if(timers_, [timer](const auto& entry) { return entry.first.second == timer; });
}

void VirtualExecutor::runUntilIdle() {
  while (!queue_.empty()) {
    const Callback next = std::move(queue_.front());
    queue_.pop_front();
    next();
  }
}

void VirtualExecutor::advance(ExecutorClock::duration duration) {
  const Instant end = now_ + duration;
  runUntilIdle();
  while (!timers_.empty() && timers_.begin()->first.first <= end) {
    runNextTimer();
  }
  now_ = end;
}

void VirtualExecutor::suspend(ExecutorClock::duration duration) {
  now_ += duration;
  advance(ExecutorClock::duration::zero());
}

bool VirtualExecutor::runNextTimer() {
  if (timers_.empty()) { return false; }
  auto due = timers_.extract(timers_.begin());
  now_ = std::max(now_, due.key().first);
  due.mapped()();
  runUntilIdle();
  return true;
}
}  // namespace orvane::test
