#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <deque>
#include <map>
#include <utility>

#include "platform/async/executor.h"
#include "platform/eventloop/boot_timer.h"

namespace orvane {

/// The executor on Qt's event loop, nested loops (menus, dialogs) included: while a callback runs
/// one, the callbacks after it run in it. Before a timer runs, the queue is emptied, so what one
/// timer sets in motion is done before the next one runs. The thread wakes for the earliest timer
/// and for nothing else.
///
/// Lives on the main thread, between the QCoreApplication's construction and its end. Callbacks
/// that are left at its destruction are destroyed without being run; a callback must not destroy
/// the executor.
class QtExecutor final : public Executor, private QObject {
 public:
  /// Throws std::system_error when the process has no file descriptor left.
  QtExecutor();
  ~QtExecutor() override;

  [[nodiscard]] Instant now() const override { return BootTimer::now(); }
  [[nodiscard]] WallTime wallClock() const override;
  void post(Callback callback) override;
  TimerId schedule(Instant when, Callback callback) override;
  void cancel(TimerId timer) override;

 private:
  using TimerKey = std::pair<Instant, TimerId>;

  bool event(QEvent* event) override;
  void runNextCallback();
  void runNextTimer();
  void armForEarliest();

  std::deque<Callback> queue_;
  std::map<TimerKey, Callback> timers_;
  TimerId lastTimer_ = 0;
  BootTimer bootTimer_;
  QSocketNotifier timerDue_;
};

}  // namespace orvane
