#pragma once

#include <list>
#include <memory>
#include <stop_token>

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

  /// Cancels every task; each still runs to its end.
  void cancelAll();

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

}  // namespace orvane
