#pragma once

#include <list>
#include <optional>
#include <utility>
#include "platform/async/completion.h"
#include "platform/async/task.h"

namespace orvane {
/// Lets tasks through one at a time, first come, first served. A task that is cancelled while it
/// waits leaves the queue. Main thread only; this orders tasks, not threads. The mutex outlives
/// its locks.
///
/// Each waiting task is a completion in the queue. The lock travels to it as the completion's
/// value: when that task is destroyed before it takes its turn, so is the value, and the turn
/// passes on by itself.
class AsyncMutex {
 public:
  /// Held while its owner is inside; gives way to the next task when it is destroyed.
  class Lock {
   public:
    explicit Lock(AsyncMutex& mutex) : mutex_(&mutex) {}
    Lock(Lock&& other) noexcept : mutex_(std::exchange(other.mutex_, nullptr)) {}
    Lock& operator=(Lock&&) = delete;
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    ~Lock() {
      if (mutex_) { mutex_->passOn(); }
    }

   private:
    AsyncMutex* mutex_;
  };

  /// Waits for this task's turn. Nothing when the task was cancelled.
  [[nodiscard]] Task<std::optional<Lock>> lock() {
    const TaskContext context = co_await currentContext();
    if (context.stop.stop_requested()) { co_return std::nullopt; }
    if (!std::exchange(held_, true)) { co_return Lock(*this); }
    CompletionAwaiter<Turn>::Start start = [this](const Completion<Turn>& completion) {
      const auto place = waiting_.insert(waiting_.end(), completion);
      return [this, place] { waiting_.erase(place); };
    };
    co_return co_await untilResolved<Turn>(std::move(start), std::nullopt);
  }

 private:
  using Turn = std::optional<Lock>;

  void passOn() {
    if (waiting_.empty()) {
      held_ = false;
      return;
    }
    const Completion<Turn> next = waiting_.front();
    waiting_.pop_front();
    next.resolve(Lock(*this));
  }

  bool held_ = false;
  std::list<Completion<Turn>> waiting_;
};
}  // namespace orvane
