#pragma once

#include <utility>

#include "platform/async/child_task.h"
#include "platform/async/timer.h"

namespace orvane {

/// Runs `task` and cancels it when it has not ended after `duration`.
template <class T>
Task<T> endingWithin(ExecutorClock::duration duration, Task<T> task) {
  const TaskContext context = co_await currentContext();
  ChildTask<T> child(context, std::move(task));
  const OneShotTimer deadline(*context.executor, duration, [&child] { child.cancel(); });
  T result = co_await child.result();
  co_return result;
}

}  // namespace orvane
