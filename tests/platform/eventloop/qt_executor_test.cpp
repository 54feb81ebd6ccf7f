#include <QAbstractEventDispatcher>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/async/sleep.h"
#include "platform/async/task_scope.h"
#include "platform/async/timer.h"
#include "platform/eventloop/real_time.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using Log = std::vector<std::string>;

class QtExecutorTest : public RealTimeTest {
 protected:
  Executor::Callback note(const std::string& what) {
    return [this, what] { log.push_back(what); };
  }

  Log log;
};

TEST_F(QtExecutorTest, CountsTheTimeSpentSuspended) {
  timespec before{};
  ::clock_gettime(CLOCK_BOOTTIME, &before);
  const Instant now = executor->now();
  timespec after{};
  ::clock_gettime(CLOCK_BOOTTIME, &after);
  EXPECT_GE(now.time_since_epoch(),
            std::chrono::seconds(before.tv_sec) + std::chrono::nanoseconds(before.tv_nsec));
  EXPECT_LE(now.time_since_epoch(),
            std::chrono::seconds(after.tv_sec) + std::chrono::nanoseconds(after.tv_nsec));
}

TEST_F(QtExecutorTest, PostsRunInTheirOrderAndNeverInsideTheCall) {
  executor->post([this] {
    log.push_back("a");
    executor->post(note("c"));
    log.push_back("a ends");
  });
  executor->post(note("b"));
  EXPECT_TRUE(log.empty());
  letPass(1ms);
  EXPECT_EQ(log, (Log{"a", "a ends", "b", "c"}));
}

TEST_F(QtExecutorTest, TimersDueTogetherRunInTheOrderOfTheirMoments) {
  const Instant now = executor->now();
  executor->schedule(now + 2ms, note("second"));
  executor->schedule(now + 2ms, note("third"));
  executor->schedule(now + 1ms, note("first"));
  executor->schedule(now - 1h, note("past"));
  executor->schedule(Instant{}, note("at the clock's beginning"));
  while (executor->now() < now + 3ms) {  // all are due when the loop looks next
  }
  letPass(1ms);
  EXPECT_EQ(log, (Log{"past", "at the clock's beginning", "first", "second", "third"}));
}

TEST_F(QtExecutorTest, WhatOneTimerSetsInMotionIsDoneBeforeTheNext) {
  executor->schedule(Instant{} + 1ns, [this] {
    log.push_back("timer 1");
    executor->post([this] {
      log.push_back("post");
      executor->post(note("post of the post"));
    });
  });
  executor->schedule(Instant{} + 2ns, note("timer 2"));
  letPass(1ms);
  EXPECT_EQ(log, (Log{"timer 1", "post", "post of the post", "timer 2"}));
}

TEST_F(QtExecutorTest, TimerRunsNotBeforeItsMoment) {
  const Instant when = executor->now() + 3ms;
  Instant ran{};
  executor->schedule(when, [&] { ran = executor->now(); });
  letPass(10ms);
  EXPECT_GE(ran, when);
}

TEST_F(QtExecutorTest, CancelledTimersDoNotRunAlsoWhenTheyAreDue) {
  const Instant now = executor->now();
  Executor::TimerId dueTogether = 0;
  Executor::TimerId itself = 0;
  executor->cancel(executor->schedule(now, note("cancelled before")));
  itself = executor->schedule(now, [&] {
    log.push_back("cancels");
    executor->cancel(dueTogether);
    executor->cancel(itself);
    executor->cancel(12345);
  });
  dueTogether = executor->schedule(now, note("cancelled by the timer before it"));
  letPass(2ms);
  EXPECT_EQ(log, Log{"cancels"});
}

TEST_F(QtExecutorTest, CancellingTheEarliestLeavesTheNextOneItsMoment) {
  const Instant now = executor->now();
  const auto earliest = executor->schedule(now + 1ms, note("earliest"));
  executor->schedule(now + 2ms, note("next"));
  executor->cancel(earliest);
  letPass(5ms);
  EXPECT_EQ(log, Log{"next"});
}

TEST_F(QtExecutorTest, NestedEventLoopRunsWhatIsLeft) {
  const auto runALoop = [this](const std::string& what) {
    return [this, what] {
      log.push_back(what);
      letPass(2ms);
      log.push_back(what + " ends");
    };
  };
  executor->post(runALoop("post with a loop"));
  executor->post(note("post"));
  letPass(5ms);
  EXPECT_EQ(log, (Log{"post with a loop", "post", "post with a loop ends"}));

  log.clear();
  executor->schedule(Instant{}, runALoop("timer with a loop"));
  executor->schedule(Instant{}, note("timer"));
  letPass(5ms);
  EXPECT_EQ(log, (Log{"timer with a loop", "timer", "timer with a loop ends"}));
}

struct CallsBackWhenDestroyed {
  QtExecutor& executor;
  Executor::TimerId timer = 0;
  explicit CallsBackWhenDestroyed(QtExecutor& given) : executor(given) {}
  CallsBackWhenDestroyed(const CallsBackWhenDestroyed&) = delete;
  CallsBackWhenDestroyed& operator=(const CallsBackWhenDestroyed&) = delete;
  ~CallsBackWhenDestroyed() {
    executor.cancel(timer);
    executor.post([] { FAIL() << "ran after the executor's end"; });
  }
};

TEST_F(QtExecutorTest, DestructionDropsWhatIsPendingAndLetsItCallBack) {
  const auto guard = [this] { return std::make_shared<CallsBackWhenDestroyed>(*executor); };
  std::weak_ptr<CallsBackWhenDestroyed> posted;
  std::weak_ptr<CallsBackWhenDestroyed> scheduled;
  {
    const auto inQueue = guard();
    const auto inTimer = guard();
    posted = inQueue;
    scheduled = inTimer;
    executor->post([inQueue] { FAIL() << "ran after the executor's end"; });
    inTimer->timer = executor->schedule(Instant{}, [inTimer] { FAIL(); });
  }
  executor.reset();
  EXPECT_TRUE(posted.expired());
  EXPECT_TRUE(scheduled.expired());
  QCoreApplication::processEvents();
}

TEST_F(QtExecutorTest, WakesForTheEarliestTimerAndForNothingElse) {
  executor->schedule(executor->now() + 24h, note("tomorrow"));
  executor->cancel(executor->schedule(executor->now() + 5ms, note("cancelled")));
  letPass(1ms);  // the loop has settled

  int wakeUps = 0;
  QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake,
                   [&wakeUps] { ++wakeUps; });
  letPass(30ms);
  EXPECT_LE(wakeUps, 3) << "begin, end of the waiting, and the end of the loop";
}

Task<void> sleepAndNote(Log& log) {
  const SleepEnd end = co_await sleepFor(1ms);
  log.emplace_back(end == SleepEnd::elapsed ? "slept" : "cancelled");
}

TEST_F(QtExecutorTest, RunsTasksAndTimers) {
  TaskScope scope(*executor);
  scope.spawn(sleepAndNote(log));
  scope.spawn(sleepAndNote(log)).cancel();
  int ticks = 0;
  const RepeatingTimer timer(*executor, 1ms, [&ticks] { ++ticks; });
  letPass(20ms);
  EXPECT_EQ(log, (Log{"cancelled", "slept"}));
  EXPECT_GE(ticks, 2);
  EXPECT_TRUE(scope.idle());
}

}  // namespace
}  // namespace orvane::test
