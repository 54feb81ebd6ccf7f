#pragma once

#include <coroutine>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <stop_token>
#include <utility>
#include "platform/async/executor.h"
#include "platform/async/task.h"

namespace orvane {
/// A reference to a task that runs in a TaskScope. Dropping it does not stop the task.
class TaskHandle {
 public:
  TaskHandle() = default;

  /// Asks the task to end. A suspended operation below it is queued for resumption within this
  /// call, so that what the task does at its end comes before anything spawned or posted later.
  void cancel() const;

  /// True once the task has run to its end; also for an empty handle.
  [[nodiscard]] bool finished() const;

 private:
  friend class TaskScope;
  struct State {
    std::stop_source stop;
    bool finished = false;
  };
  explicit TaskHandle(std::shared_ptr<State> state) : state_(std::move(state)) {}

  std::shared_ptr<State> state_;
};

/// Owns the tasks that an object has started, and is the last member of that object: when the
/// scope is destroyed its suspended tasks are destroyed with it, together with the timers and
/// requests they wait for, so no task ever runs on a freed object. Main thread only. A scope must
/// not be destroyed by one of its own tasks.
class TaskScope {
 public:
  explicit TaskScope(Executor& executor);
  TaskScope(const TaskScope&) = delete;
  TaskScope& operator=(const TaskScope&) = delete;
  ~TaskScope();

  /// Starts `task` from the executor's queue, never inside this call.
  TaskHandle spawn(Task<void> task);

  /// True when every task has run to its end.
  [[nodiscard]] bool idle() const { return running_.empty(); }

 private:
  struct Running {
    Task<void> body;
    std::shared_ptr<TaskHandle::State> state;
  };

  Task<void> runToEnd(Task<void> task, std::shared_ptr<TaskHandle::State> state);
  void start(Running& running);
  void collectFinished();

  Executor& executor_;
  std::list<Running> running_;
  // Queued callbacks outlive the scope; this tells them so.
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

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
