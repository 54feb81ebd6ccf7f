#include "platform/async/sleep.h"

#include "platform/async/completion.h"

namespace orvane {

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
