#include "platform/async/task_scope.h"

namespace orvane {
void TaskHandle::cancel() const {
  if (state_) { state_->stop.request_stop(); }
}

bool TaskHandle::finished() const { return !state_ || state_->finished; }

TaskScope::TaskScope(Executor& executor) : executor_(executor) {}

TaskScope::~TaskScope() {
  *alive_ = false;
  // A task's destruction may release objects whose destructors look at the list.
  auto abandoned = std::exchange(running_, {});
  abandoned.clear();
}

TaskHandle TaskScope::spawn(Task<void> task) {
  auto state = std::make_shared<TaskHandle::State>();
  running_.push_back(Running{runToEnd(std::move(task), state), state});
  Running& added = running_.back();
  executor_.post([this, alive = alive_, &added] {
    if (*alive) { start(added); }
  });
  return TaskHandle(std::move(state));
}

Task<void> TaskScope::runToEnd(Task<void> task, std::shared_ptr<TaskHandle::State> state) {
  co_await std::move(task);
  state->finished = true;
  executor_.post([this, alive = alive_] {
    if (*alive) { collectFinished(); }
  });
}

void TaskScope::start(Running& running) {
  running.body.handle().promise().setContext(
      TaskContext{&executor_, running.state->stop.get_token()});
  running.body.handle().resume();
}

void TaskScope::collectFinished() {
  running_.remove_if([](const Running& running) { return running.state->finished; });
}
}  // namespace orvane
