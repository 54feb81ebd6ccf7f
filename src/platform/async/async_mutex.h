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
  [[nodiscard]] Task<std::optional<Lock>> lock();

 private:
  void passOn();

  bool held_ = false;
  std::list<Completion<std::optional<Lock>>> waiting_;
};

}  // namespace orvane
