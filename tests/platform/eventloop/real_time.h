#pragma once

#include <QCoreApplication>
#include <QEventLoop>
#include <stdexcept>
#include <gtest/gtest.h>
#include "platform/async/task_scope.h"
#include "platform/eventloop/qt_executor.h"

namespace orvane::test {
namespace detail {

template <class T>
Task<void> keepResult(Task<T> task, std::optional<T>& result, QEventLoop& loop) {
  T value = co_await std::move(task);
  result.emplace(std::move(value));
  loop.quit();
}
}  // namespace detail

/// Qt's event loop and the real executor, for tests of real parts; time is as it is.
class RealTime {
 public:
  /// Runs the event loop until the task has ended; throws after half a minute.
  template <class T>
  T run(Task<T> task) {
    std::optional<T> result;
    QEventLoop loop;
    const auto guard =
        executor->schedule(executor->now() + std::chrono::seconds(30), [&loop] { loop.quit(); });
    TaskScope scope(*executor);
    scope.spawn(detail::keepResult(std::move(task), result, loop));
    loop.exec();
    executor->cancel(guard);
    if (!result) { throw std::runtime_error("the task does not end"); }
    return std::move(*result);
  }

  /// Lets the event loop run for so long.
  void letPass(ExecutorClock::duration duration) {
    QEventLoop loop;
    executor->schedule(executor->now() + duration, [&loop] { loop.quit(); });
    loop.exec();
  }

  /// Lets the event loop run until `condition` holds, at most half a minute.
  template <class Condition>
  bool letPassUntil(Condition condition) {
    const Instant end = executor->now() + std::chrono::seconds(30);
    while (!condition() && executor->now() < end) {
      letPass(std::chrono::milliseconds(2));
    }
    return condition();
  }

  /// How long `work` takes.
  template <class Work>
  ExecutorClock::duration timeOf(Work work) {
    const Instant begin = executor->now();
    work();
    return executor->now() - begin;
  }

 private:
  int argc_ = 1;
  char name_[5] = "test";
  char* argv_[2] = {name_, nullptr};
  QCoreApplication application_{argc_, argv_};

 public:
  std::unique_ptr<QtExecutor> executor = std::make_unique<QtExecutor>();
};

class RealTimeTest : public ::testing::Test, public RealTime {};
}  // namespace orvane::test
