#pragma once

#include <coroutine>
#include <exception>
#include <optional>
#include <stop_token>
#include <utility>

namespace orvane {
// How tasks run. A Task owns the frame of a coroutine that has not begun. Awaiting it gives its
// promise the context (executor and stop token) and the awaiting coroutine as continuation, and
// control moves over to it; at its end control moves on to the continuation, which takes the result
// out of the promise. Both moves are symmetric transfers, so long chains need no stack. What waits
// for the outside world is a completion (completion.h); what starts a task from code that is no
// coroutine is a TaskScope (task_scope.h).

class Executor;

/// What a running task hands down to everything it awaits.
struct TaskContext {
  Executor* executor = nullptr;
  std::stop_token stop;
};

template <class T>
class Task;

namespace detail {
/// The part of a promise that does not depend on the result: who is running the task, and who
/// goes on when it ends.
class TaskPromiseBase {
 public:
  struct FinalAwaiter {
    static bool await_ready() noexcept { return false; }
    template <class Promise>
    std::coroutine_handle<> await_suspend(std::coroutine_handle<Promise> ended) noexcept {
      return ended.promise().continuation_;
    }
    static void await_resume() noexcept {}
  };

  static std::suspend_always initial_suspend() noexcept { return {}; }
  static FinalAwaiter final_suspend() noexcept { return {}; }
  /// Failures are values; the adapters of libraries that throw catch what they throw.
  [[noreturn]] static void unhandled_exception() noexcept { std::terminate(); }

  [[nodiscard]] const TaskContext& context() const noexcept { return context_; }
  void setContext(TaskContext context) noexcept { context_ = std::move(context); }
  void setContinuation(std::coroutine_handle<> next) noexcept { continuation_ = next; }

 private:
  TaskContext context_;
  std::coroutine_handle<> continuation_ = std::noop_coroutine();
};

template <class T>
class TaskPromise final : public TaskPromiseBase {
 public:
  Task<T> get_return_object() noexcept;
  template <class Value>
  void return_value(Value&& value) {
    result_.emplace(std::forward<Value>(value));
  }
  T takeResult() { return std::move(*result_); }

 private:
  std::optional<T> result_;
};

template <>
class TaskPromise<void> final : public TaskPromiseBase {
 public:
  Task<void> get_return_object() noexcept;
  void return_void() noexcept {}
  void takeResult() noexcept {}
};
}  // namespace detail

/// A piece of asynchronous work that ends with a T. It is lazy: it starts when it is awaited (or
/// spawned in a TaskScope, or run as a ChildTask) and runs on the main thread. It may be awaited
/// once, by one task; the awaiting task hands down its executor and its stop token. Cancelling
/// ends every suspended operation below with the `cancelled` value of its result type. Destroying
/// a suspended task releases the timers and requests that it waits for.
template <class T = void>
class [[nodiscard]] Task {
 public:
  using promise_type = detail::TaskPromise<T>;
  using Handle = std::coroutine_handle<promise_type>;

  explicit Task(Handle handle) noexcept : handle_(handle) {}
  Task(Task&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  Task& operator=(Task&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  Task(const Task&) = delete;
  Task& operator=(const Task&) = delete;
  ~Task() {
    if (handle_) { handle_.destroy(); }
  }

  /// The coroutine itself, for the primitives that start tasks.
  [[nodiscard]] Handle handle() const noexcept { return handle_; }

  auto operator co_await() && noexcept { return Awaiter{handle_}; }

 private:
  struct Awaiter {
    Handle child;
    static bool await_ready() noexcept { return false; }
    template <class Promise>
    std::coroutine_handle<> await_suspend(std::coroutine_handle<Promise> parent) noexcept {
      child.promise().setContext(parent.promise().context());
      child.promise().setContinuation(parent);
      return child;
    }
    T await_resume() { return child.promise().takeResult(); }
  };

  Handle handle_;
};

namespace detail {
template <class T>
Task<T> TaskPromise<T>::get_return_object() noexcept {
  return Task<T>(std::coroutine_handle<TaskPromise>::from_promise(*this));
}

inline Task<void> TaskPromise<void>::get_return_object() noexcept {
  return Task<void>(std::coroutine_handle<TaskPromise>::from_promise(*this));
}

struct CurrentContext {
  TaskContext context;
  static bool await_ready() noexcept { return false; }
  template <class Promise>
  bool await_suspend(std::coroutine_handle<Promise> task) noexcept {
    context = task.promise().context();
    return false;
  }
  TaskContext await_resume() noexcept { return std::move(context); }
};
}  // namespace detail

/// `co_await currentContext()` gives the awaiting task's own executor and stop token. It never
/// suspends. Use it to start child tasks and to ask whether the task has been cancelled.
inline detail::CurrentContext currentContext() noexcept { return {}; }
}  // namespace orvane
