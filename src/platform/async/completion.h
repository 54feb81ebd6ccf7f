#pragma once

#include <coroutine>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <utility>
#include "platform/async/executor.h"
#include "platform/async/task.h"

namespace orvane {
// How a task waits for a callback. The awaiter lives in the coroutine's frame, while the callback
// may come late, twice, or never; so the two ends share a small state: the value, once it is
// decided, and the coroutine that waits. Whoever is first, the callback or a cancellation, decides
// the value and posts the one resumption; whoever comes later finds a value there and does
// nothing. Destroying the coroutine takes it out of the state, so that a resumption which is
// already queued finds nobody. All of it happens on the main thread.

namespace detail {
template <class T>
struct CompletionState {
  Executor* executor = nullptr;
  std::optional<T> value;
  std::coroutine_handle<> waiting;

  static void resolve(const std::shared_ptr<CompletionState>& state, T value) {
    if (state->value || !state->waiting) { return; }
    state->value.emplace(std::move(value));
    state->executor->post([state] {
      if (auto task = std::exchange(state->waiting, nullptr)) { task.resume(); }
    });
  }
};
}  // namespace detail

/// The callback end of a suspended operation. Copies stand for the same operation; the first
/// `resolve` decides, later ones and those after a cancellation or destruction are ignored.
template <class T>
class Completion {
 public:
  explicit Completion(std::shared_ptr<detail::CompletionState<T>> state)
      : state_(std::move(state)) {}

  /// Ends the operation with `value`; the task goes on from the executor's queue, never inside
  /// this call.
  void resolve(T value) const { detail::CompletionState<T>::resolve(state_, std::move(value)); }

 private:
  std::shared_ptr<detail::CompletionState<T>> state_;
};

/// Waits for a callback. See `untilResolved`.
template <class T>
class [[nodiscard]] CompletionAwaiter {
 public:
  using Abort = std::function<void()>;
  using Start = std::function<Abort(Completion<T>)>;

  CompletionAwaiter(Start start, T whenCancelled)
      : start_(std::move(start)), whenCancelled_(std::move(whenCancelled)) {}
  CompletionAwaiter(const CompletionAwaiter&) = delete;
  CompletionAwaiter& operator=(const CompletionAwaiter&) = delete;
  ~CompletionAwaiter() {
    stopCallback_.reset();
    state_->waiting = nullptr;
    if (!state_->value) { runAbort(); }
    // A queued resumption may keep the state for a while; what it carries is released now.
    state_->value.reset();
  }

  static bool await_ready() noexcept { return false; }

  template <class Promise>
  bool await_suspend(std::coroutine_handle<Promise> task) {
    const TaskContext& context = task.promise().context();
    if (context.stop.stop_requested()) {
      state_->value.emplace(std::move(whenCancelled_));
      return false;
    }
    state_->executor = context.executor;
    state_->waiting = task;
    abort_ = start_(Completion<T>(state_));
    stopCallback_.emplace(context.stop, std::function<void()>([this] { cancel(); }));
    return true;
  }

  T await_resume() {
    stopCallback_.reset();
    return std::move(*state_->value);
  }

 private:
  // The value is decided before the abort runs: aborting may well report a failure of its own.
  void cancel() {
    if (state_->value) { return; }
    detail::CompletionState<T>::resolve(state_, std::move(whenCancelled_));
    runAbort();
  }

  void runAbort() {
    if (auto abort = std::exchange(abort_, nullptr)) { abort(); }
  }

  Start start_;
  T whenCancelled_;
  Abort abort_;
  std::shared_ptr<detail::CompletionState<T>> state_ =
      std::make_shared<detail::CompletionState<T>>();
  std::optional<std::stop_callback<std::function<void()>>> stopCallback_;
};

/// Bridges a callback interface to a task: `start` begins the operation and returns what stops
/// it. The task resumes exactly once, with the value that the callback resolved, or with
/// `whenCancelled` when the task is cancelled first. The stopping function runs at most once, and
/// only while the operation has not resolved: on cancellation, or when the task is destroyed.
template <class T>
CompletionAwaiter<T> untilResolved(typename CompletionAwaiter<T>::Start start, T whenCancelled) {
  return CompletionAwaiter<T>(std::move(start), std::move(whenCancelled));
}
}  // namespace orvane
