#include "platform/eventloop/qt_executor.h"
#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
#include <cerrno>
#include <ctime>
#include <system_error>
#include <sys/timerfd.h>
#include <unistd.h>

namespace orvane {
// Posted callbacks wait in a queue of our own, and each has one event in Qt's, which says no more
// than "run the next one": a nested event loop so goes on with those that are left. Timers lie in
// a map by their moments. One kernel timer on the boot clock is set to the earliest of them and
// wakes the loop through its descriptor; Qt's own timers stand still while the machine is
// suspended.

namespace {
using std::chrono::nanoseconds;
using std::chrono::seconds;

constexpr QEvent::Type nextCallback = QEvent::User;
}  // namespace

BootTimer::BootTimer() : descriptor_(::timerfd_create(CLOCK_BOOTTIME, TFD_NONBLOCK | TFD_CLOEXEC)) {
  if (descriptor_ < 0) {
    throw std::system_error(errno, std::generic_category(), "timerfd_create");
  }
}

BootTimer::~BootTimer() { ::close(descriptor_); }

Instant BootTimer::now() {
  timespec time{};
  ::clock_gettime(CLOCK_BOOTTIME, &time);
  return Instant(seconds(time.tv_sec) + nanoseconds(time.tv_nsec));
}

void BootTimer::set(std::optional<Instant> when) {
  itimerspec setting{};
  if (when) {
    // All zero would mean never.
    const nanoseconds moment = std::max(when->time_since_epoch(), nanoseconds(1));
    const auto whole = std::chrono::floor<seconds>(moment);
    setting.it_value.tv_sec = whole.count();
    setting.it_value.tv_nsec = (moment - whole).count();
  }
  ::timerfd_settime(descriptor_, TFD_TIMER_ABSTIME, &setting, nullptr);
}

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
