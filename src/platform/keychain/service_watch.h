#pragma once

#include <QString>
#include <utility>

#include "platform/async/executor.h"
#include "platform/async/task.h"
#include "platform/async/task_scope.h"
#include "platform/async/timer.h"
#include "platform/bus/bus_watch.h"
#include "platform/bus/session_bus.h"

namespace orvane {

/// Stands between us and libsecret, which takes for granted that the Secret Service is there,
/// answers and stays: it waits for the bus's time-out when there is none, as long as a silent one
/// is silent, and for ever for the answer to a prompt of one that has ended. The bus outlives this,
/// and this the tasks.
class ServiceWatch {
 public:
  /// `deadline` is for everything that waits for the service and not for the user.
  ServiceWatch(SessionBus& bus, ExecutorClock::duration deadline)
      : bus_(bus), deadline_(deadline) {}

  /// Runs `question` when a service runs or the bus can start one, and cancels it when it has not
  /// ended in time. `otherwise` is the result where there is none.
  template <class T>
  Task<T> answerTo(Task<T> question, T otherwise) const {
    const TaskContext context = co_await currentContext();
    ChildTask<T> child(context, ifPresent(std::move(question), std::move(otherwise)));
    const OneShotTimer timer(*context.executor, deadline_, [&child] { child.cancel(); });
    T result = co_await child.result();
    co_return result;
  }

  /// Runs `prompt` for as long as the user takes to answer, and cancels it when the service, or the
  /// bus with it, goes away.
  template <class T>
  Task<T> answerOfUser(Task<T> prompt) const {
    const TaskContext context = co_await currentContext();
    ChildTask<T> child(context, std::move(prompt));
    const BusName service(bus_, name(), [&child](bool isOwned) {
      if (!isOwned) { child.cancel(); }
    });
    if (service.isKnown()) { child.cancel(); }  // there is no bus any more
    T result = co_await child.result();
    co_return result;
  }

 private:
  [[nodiscard]] static QString name();
  [[nodiscard]] Task<bool> isPresent() const;

  template <class T>
  Task<T> ifPresent(Task<T> question, T otherwise) const {
    const bool isThere = co_await isPresent();
    if (!isThere) { co_return otherwise; }
    T result = co_await std::move(question);
    co_return result;
  }

  SessionBus& bus_;
  ExecutorClock::duration deadline_;
};

}  // namespace orvane
