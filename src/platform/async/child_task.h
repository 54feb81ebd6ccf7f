#pragma once

#include <coroutine>
#include <functional>
#include <optional>
#include <stop_token>
#include <utility>

#include "platform/async/task.h"

namespace orvane {

/// A task that runs beside its parent. It starts when it is constructed, running up to its first
/// suspension, and is cancelled with its parent or by `cancel`. Its owner is a local variable of
/// the parent's coroutine; destroying it while it is suspended releases what it waits for.
///
///     const TaskContext context = co_await currentContext();
///     ChildTask totals(context, fetchAddressStats(address));
///     ChildTask tip(context, fetchTipHeightText());
///     auto first = co_await totals.result();
template <class T>
class ChildTask {
 public:
  ChildTask(const TaskContext& parent, Task<T> task) : task_(std::move(task)) {
    stopWithParent_.emplace(parent.stop, std::function<void()>([this] { cancel(); }));
    task_.handle().promise().setContext(TaskContext{parent.executor, stop_.get_token()});
    task_.handle().resume();
  }
  ChildTask(const ChildTask&) = delete;
  ChildTask& operator=(const ChildTask&) = delete;

  void cancel() { stop_.request_stop(); }

  /// `co_await child.result()` waits for the end and takes the result; at most once.
  auto result() noexcept { return ResultAwaiter{{task_.handle()}}; }

  /// `co_await child.ended()` waits for the end and leaves the result alone.
  auto ended() noexcept { return EndAwaiter{task_.handle()}; }

 private:
  struct EndAwaiter {
    typename Task<T>::Handle child;
    bool await_ready() const noexcept { return child.done(); }
    void await_suspend(std::coroutine_handle<> parent) noexcept {
      child.promise().setContinuation(parent);
    }
    void await_resume() const noexcept {}
  };
  struct ResultAwaiter : EndAwaiter {
    T await_resume() { return this->child.promise().takeResult(); }
  };

  std::stop_source stop_;
  std::optional<std::stop_callback<std::function<void()>>> stopWithParent_;
  Task<T> task_;
};

/// Cancels the children and waits until each has ended: for a parent that has met a failure and
/// must not leave work behind.
template <class... Children>
Task<void> cancelAndAwaitEnd(Children&... children) {
  (children.cancel(), ...);
  (co_await children.ended(), ...);
}

}  // namespace orvane
