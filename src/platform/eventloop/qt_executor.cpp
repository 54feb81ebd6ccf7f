#include "platform/eventloop/qt_executor.h"

#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
#include <optional>

namespace orvane {

namespace {

constexpr QEvent::Type nextCallback = QEvent::User;

}  // namespace

QtExecutor::QtExecutor() : timerDue_(bootTimer_.descriptor(), QSocketNotifier::Read) {
  QObject::connect(&timerDue_, &QSocketNotifier::activated, this, [this] { runNextTimer(); });
}

QtExecutor::~QtExecutor() {
  // The callbacks' own destructors may still call `cancel` or `post`.
  while (!queue_.empty() || !timers_.empty()) {
    const auto callbacks = std::exchange(queue_, {});
    const auto timers = std::exchange(timers_, {});
  }
}

WallTime QtExecutor::wallClock() const {
  return std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
}

void QtExecutor::post(Callback callback) {
  queue_.push_back(std::move(callback));
  // One event for each callback: a nested event loop then finds those that are left.
  QCoreApplication::postEvent(this, new QEvent(nextCallback));
}

Executor::TimerId QtExecutor::schedule(Instant when, Callback callback) {
  const TimerKey key{std::max(when, now()), ++lastTimer_};
  const auto added = timers_.emplace(key, std::move(callback)).first;
  if (added == timers_.begin()) { armForEarliest(); }
  return lastTimer_;
}

void QtExecutor::cancel(TimerId timer) {
  const auto found = std::find_if(timers_.begin(), timers_.end(), [timer](const auto& entry) {
    return entry.first.second == timer;
  });
  if (found == timers_.end()) { return; }
  const bool wasEarliest = found == timers_.begin();
  const auto forgotten = timers_.extract(found);  // its destructor may call back into the executor
  if (wasEarliest) { armForEarliest(); }
}

bool QtExecutor::event(QEvent* event) {
  if (event->type() != nextCallback) { return QObject::event(event); }
  runNextCallback();
  return true;
}

void QtExecutor::runNextCallback() {
  const Callback callback = std::move(queue_.front());
  queue_.pop_front();
  callback();
}

void QtExecutor::runNextTimer() {
  QCoreApplication::sendPostedEvents(this, nextCallback);
  if (timers_.empty() || timers_.begin()->first.first > now()) {
    armForEarliest();
    return;
  }
  const auto due = timers_.extract(timers_.begin());
  armForEarliest();  // first: the callback may run an event loop of its own
  due.mapped()();
}

void QtExecutor::armForEarliest() {
  bootTimer_.set(timers_.empty() ? std::nullopt : std::optional(timers_.begin()->first.first));
}

}  // namespace orvane
