#pragma once

#include <stdexcept>
#include "platform/async/task_scope.h"
#include "support/virtual_executor.h"

namespace orvane::test {
namespace detail {

template <class T>
Task<void> storeResult(Task<T> task, std::optional<T>& result) {
  T value = co_await std::move(task);
  result.emplace(std::move(value));
}
}  // namespace detail

/// Runs `task` to its end, letting as much virtual time pass as it needs and no more. Fails the
/// test (by an exception) when the task waits for something that no timer will bring, or goes on
/// for more than 100,000 timers.
template <class T>
T runTask(VirtualExecutor& executor, Task<T> task) {
  std::optional<T> result;
  TaskScope scope(executor);
  scope.spawn(detail::storeResult(std::move(task), result));
  executor.runUntilIdle();
  for (int timersLeft = 100'000; !result; --timersLeft) {
    if (timersLeft == 0 || !executor.runNextTimer()) {
      throw std::runtime_error("the task does not end");
    }
  }
  return *std::move(result);
}
}  // namespace orvane::test
