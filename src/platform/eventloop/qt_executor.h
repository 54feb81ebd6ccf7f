#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <deque>
#include <map>
#include <optional>
#include <utility>
#include "platform/async/executor.h"

namespace orvane {
/// A kernel timer on the clock that goes on counting while the machine is suspended.
class BootTimer {
 public:
  /// Throws std::system_error when the process has no file descriptor left.
  BootTimer();
  ~BootTimer();
  BootTimer(const BootTimer&) = delete;
  BootTimer& operator=(const BootTimer&) = delete;

  [[nodiscard]] static Instant now();

  /// Readable from the set moment on, until it is set anew.
  [[nodiscard]] int descriptor() const { return descriptor_; }

  /// Replaces the moment; nothing: never. A moment in the past makes it readable at once.
  void set(std::optional<Instant> when);

 private:
  int descriptor_;
};

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
