#include "platform/async/async_mutex.h"

namespace orvane {

Task<std::optional<AsyncMutex::Lock>> AsyncMutex::lock() {
  const TaskContext context = co_await currentContext();
  if (context.stop.stop_requested()) { co_return std::nullopt; }
  if (!held_) {
    held_ = true;
    co_return Lock(*this);
  }
  using Turn = std::optional<Lock>;
  CompletionAwaiter<Turn>::Start start = [this](const Completion<Turn>& completion) {
    const auto place = waiting_.insert(waiting_.end(), completion);
    return [this, place] { waiting_.erase(place); };
  };
  co_return co_await untilResolved<Turn>(std::move(start), std::nullopt);
}

// The lock travels inside the resolved value: if the next task is gone before it takes its turn,
// the value is destroyed and the turn passes on by itself.
void AsyncMutex::passOn() {
  if (waiting_.empty()) {
    held_ = false;
    return;
  }
  const Completion<std::optional<Lock>> next = waiting_.front();
  waiting_.pop_front();
  next.resolve(Lock(*this));
}

}  // namespace orvane
