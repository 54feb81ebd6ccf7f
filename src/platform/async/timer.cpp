#include "platform/async/timer.h"
#include <utility>
#include "platform/async/completion.h"

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

Task<SleepEnd> sleepUntil(Instant when) {
  const TaskContext context = co_await currentContext();
  if (context.stop.stop_requested()) { co_return SleepEnd::cancelled; }
  Executor* const executor = context.executor;
  if (when <= executor->now()) { co_return SleepEnd::elapsed; }

  CompletionAwaiter<SleepEnd>::Start start = [executor,
                                              when](const Completion<SleepEnd>& completion) {
    const auto timer =
        executor->schedule(when, [completion] { completion.resolve(SleepEnd::elapsed); });
    return [executor, timer] { executor->cancel(timer); };
  };
  co_return co_await untilResolved<SleepEnd>(std::move(start), SleepEnd::cancelled);
}

Task<SleepEnd> sleepFor(ExecutorClock::duration duration) {
  const TaskContext context = co_await currentContext();
  const Instant when = context.executor->now() + duration;
  co_return co_await sleepUntil(when);
}
}  // namespace orvane
