#include <array>
#include <gtest/gtest.h>
#include "platform/async/async_mutex.h"
#include "platform/async/signal.h"
#include "platform/async/task_scope.h"
#include "platform/async/timer.h"
#include "support/virtual_executor.h"

namespace orvane::test { namespace {

using namespace std::chrono_literals;
using Log = std::vector<std::string>;

class TaskTest : public ::testing::Test {
 protected:
  VirtualExecutor executor;
  Log log;
  TaskScope scope{executor};
};

Task<void> sleepAndLog(Log& log, std::string name) {
  log.push_back(name + " starts");
  const SleepEnd end = co_await sleepFor(10s);
  log.push_back(name + (end == SleepEnd::elapsed ? " slept" : " cancelled"));
}

TEST_F(TaskTest, CancellingLetsTheOldTaskEndBeforeItsSuccessorBegins) {
  const TaskHandle old = scope.spawn(sleepAndLog(log, "old"));
  executor.runUntilIdle();
  old.cancel();
  scope.spawn(sleepAndLog(log, "new"));
  EXPECT_EQ(log, Log{"old starts"}) << "inside the calls";
  EXPECT_FALSE(old.finished());
  executor.advance(10s);
  EXPECT_EQ(log, (Log{"old starts", "old cancelled", "new starts", "new slept"}));
  EXPECT_TRUE(old.finished() && scope.idle());
}

TEST_F(TaskTest, DestroyingTheScopeReleasesTimersAndResumesNothing) {
  {
    TaskScope shortLived(executor);
    shortLived.spawn(sleepAndLog(log, "suspended"));
    executor.runUntilIdle();
    shortLived.spawn(sleepAndLog(log, "queued"));
  }
  EXPECT_EQ(executor.pendingTimers(), 0U);
  executor.advance(1min);
  EXPECT_EQ(log, Log{"suspended starts"});
}

Task<void> awaitValue(Log& log, std::optional<Completion<int>>& completion, int& aborts) {
  CompletionAwaiter<int>::Start start = [&](Completion<int> given) {
    completion = std::move(given);
    return [&aborts] { ++aborts; };
  };
  const int value = co_await untilResolved<int>(std::move(start), -1);
  log.push_back(std::to_string(value));
}

TEST_F(TaskTest, OnlyTheFirstOutcomeOfAnOperationCounts) {
  using Scope = std::optional<TaskScope>;
  struct Case {
    std::string name;
    std::function<void(Completion<int>&, const TaskHandle&, Scope&)> events;
    Log outcome;
    int aborts;
  };
  const std::vector<Case> cases = {
      {"resolved twice", [](auto& c, auto&, auto&) { c.resolve(1), c.resolve(2); }, {"1"}, 0},
      {"then cancelled", [](auto& c, auto& t, auto&) { c.resolve(1), t.cancel(); }, {"1"}, 0},
      {"then destroyed", [](auto& c, auto&, auto& s) { c.resolve(1), s.reset(); }, {}, 0},
      {"cancelled twice", [](auto&, auto& t, auto&) { t.cancel(), t.cancel(); }, {"-1"}, 1},
      {"then resolved", [](auto& c, auto& t, auto&) { t.cancel(), c.resolve(1); }, {"-1"}, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    log.clear();
    int aborts = 0;
    std::optional<Completion<int>> completion;
    Scope ownScope(executor);
    const TaskHandle task = ownScope->spawn(awaitValue(log, completion, aborts));
    executor.runUntilIdle();
    c.events(*completion, task, ownScope);
    EXPECT_TRUE(log.empty()) << "resumed inside the event";
    executor.runUntilIdle();
    completion->resolve(3);
    executor.runUntilIdle();
    EXPECT_EQ(log, c.outcome);
    EXPECT_EQ(aborts, c.aborts);
  }
}

Task<int> valueAfter(int value, ExecutorClock::duration duration) {
  const SleepEnd end = co_await sleepFor(duration);
  co_return end == SleepEnd::elapsed ? value : -value;
}

Task<void> awaitChildren(Log& log, bool abandons) {
  const TaskContext context = co_await currentContext();
  ChildTask slow(context, valueAfter(1, 10s));
  ChildTask fast(context, valueAfter(2, 5s));
  if (abandons) { co_await cancelAndAwaitEnd(slow, fast); }
  log.push_back(std::to_string(co_await slow.result()));
  log.push_back(std::to_string(co_await fast.result()));
}

TEST_F(TaskTest, ChildrenAreCancelledWithOrByTheirParent) {
  const TaskHandle parent = scope.spawn(awaitChildren(log, false));
  scope.spawn(awaitChildren(log, true));
  executor.runUntilIdle();
  parent.cancel();
  executor.runUntilIdle();
  EXPECT_EQ(log, (Log{"-1", "-2", "-1", "-2"}));
}

Task<void> enter(AsyncMutex& mutex, std::optional<AsyncMutex::Lock>& inside) {
  std::optional<AsyncMutex::Lock> turn = co_await mutex.lock();
  inside.emplace(*std::move(turn));
}

TEST_F(TaskTest, ATurnGivenToADestroyedTaskPassesOn) {
  AsyncMutex mutex;
  std::array<std::optional<AsyncMutex::Lock>, 3> inside;
  auto doomed = std::make_unique<TaskScope>(executor);
  scope.spawn(enter(mutex, inside[0]));
  doomed->spawn(enter(mutex, inside[1]));
  scope.spawn(enter(mutex, inside[2]));
  executor.runUntilIdle();
  EXPECT_TRUE(inside[0] && !inside[1] && !inside[2]);
  inside[0].reset();
  doomed.reset();
  executor.runUntilIdle();
  EXPECT_TRUE(inside[2] && !inside[1]);
}

Task<void> tryToStartSomething(AsyncMutex& mutex, Log& log) {
  CompletionAwaiter<bool>::Start start = [&log](const Completion<bool>&) {
    log.emplace_back("started");
    return [] {};
  };
  co_await untilResolved<bool>(std::move(start), false);
  const SleepEnd sleep = co_await sleepFor(0s);
  const std::optional<AsyncMutex::Lock> turn = co_await mutex.lock();
  log.emplace_back(sleep == SleepEnd::elapsed || turn ? "slept or locked" : "ended");
}

// A request that is begun only to be aborted has been seen by its server.
TEST_F(TaskTest, ACancelledTaskStartsNothingMore) {
  AsyncMutex mutex;
  scope.spawn(tryToStartSomething(mutex, log)).cancel();
  executor.runUntilIdle();
  EXPECT_EQ(log, Log{"ended"});
}

TEST_F(TaskTest, ARepeatingTimerGoesOnAndCountsANightAsOneInterval) {
  int fired = 0;
  const RepeatingTimer timer(executor, 30s, [&fired] { ++fired; });
  executor.advance(29s);
  EXPECT_EQ(fired, 0);
  executor.advance(61s);
  EXPECT_EQ(fired, 3);
  executor.suspend(8h);
  EXPECT_EQ(fired, 4);
}

TEST(SignalTest, LetsListenersComeAndGoWhileTheyAreTold) {
  Signal<int> signal;
  Log heard;
  Registration last;
  Registration later;
  const Registration first = signal.subscribe([&](int value) {
    heard.push_back("first " + std::to_string(value));
    last = {};
    if (later) { return; }
    later = signal.subscribe([&](int next) { heard.push_back("later " + std::to_string(next)); });
  });
  last = signal.subscribe([&](int) { heard.emplace_back("told after its end"); });
  signal.send(1);
  signal.send(2);
  EXPECT_EQ(heard, (Log{"first 1", "first 2", "later 2"}));
}

}}  // namespace orvane::test
