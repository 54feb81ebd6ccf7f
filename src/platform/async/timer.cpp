#include "platform/async/timer.h"

#include <utility>

namespace orvane {

OneShotTimer::OneShotTimer(Executor& executor, ExecutorClock::duration delay,
                           Executor::Callback callback)
    : executor_(executor), timer_(executor.schedule(executor.now() + delay, std::move(callback))) {}

OneShotTimer::~OneShotTimer() { executor_.cancel(timer_); }

RepeatingTimer::RepeatingTimer(Executor& executor, ExecutorClock::duration interval,
                               Executor::Callback callback)
    : executor_(executor), interval_(interval), callback_(std::move(callback)) {
  arm();
}

RepeatingTimer::~RepeatingTimer() { executor_.cancel(timer_); }

void RepeatingTimer::arm() {
  timer_ = executor_.schedule(executor_.now() + interval_, [this] { fire(); });
}

void RepeatingTimer::fire() {
  arm();
  const auto callback = callback_;  // survives the destruction of this timer within the call
  callback();
}

}  // namespace orvane
