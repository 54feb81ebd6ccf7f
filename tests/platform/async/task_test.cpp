#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/async/async_mutex.h"
#include "platform/async/task_scope.h"
#include "platform/async/timer.h"
#include "support/virtual_executor.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using Log = std::vector<std::string>;

class TaskTest : public ::testing::Test {
 protected:
  VirtualExecutor executor;
  Log log;
  TaskScope scope{executor};
};

Task<void> sleepAndLog(Log& log, std::string name, ExecutorClock::duration duration) {
  log.push_back(name + " starts");
  const SleepEnd end = co_await sleepFor(duration);
  log.push_back(name + (end == SleepEnd::elapsed ? " slept" : " cancelled"));
}

TEST_F(TaskTest, StartsFromTheQueueAndResumesAtItsMoment) {
  const TaskHandle handle = scope.spawn(sleepAndLog(log, "a", 10s));
  EXPECT_TRUE(log.empty());
  executor.runUntilIdle();
  EXPECT_EQ(log, Log{"a starts"});
  executor.advance(9999ms);
  EXPECT_FALSE(handle.finished());
  executor.advance(1ms);
  EXPECT_EQ(log.back(), "a slept");
  EXPECT_TRUE(handle.finished());
  EXPECT_TRUE(scope.idle());
}

TEST_F(TaskTest, CancellingLetsTheOldTaskEndBeforeItsSuccessorBegins) {
  const TaskHandle old = scope.spawn(sleepAndLog(log, "old", 10s));
  executor.runUntilIdle();
  old.cancel();
  scope.spawn(sleepAndLog(log, "new", 10s)).cancel();
  EXPECT_EQ(log, Log{"old starts"});
  executor.runUntilIdle();
  EXPECT_EQ(log, (Log{"old starts", "old cancelled", "new starts", "new cancelled"}));
  EXPECT_EQ(executor.pendingTimers(), 0U);
}

TEST_F(TaskTest, DestroyingTheScopeReleasesTimersAndResumesNothing) {
  {
    TaskScope shortLived(executor);
    shortLived.spawn(sleepAndLog(log, "suspended", 10s));
    executor.runUntilIdle();
    shortLived.spawn(sleepAndLog(log, "queued", 10s));
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
  struct Case {
    std::string name;
    std::function<void(Completion<int>&, const TaskHandle&)> events;
    std::string outcome;
    int aborts;
  };
  const std::vector<Case> cases = {
      {"resolved twice", [](auto& c, auto&) { c.resolve(1), c.resolve(2); }, "1", 0},
      {"resolved, then cancelled", [](auto& c, auto& t) { c.resolve(1), t.cancel(); }, "1", 0},
      {"cancelled, then resolved", [](auto& c, auto& t) { t.cancel(), c.resolve(1); }, "-1", 1},
      {"cancelled twice", [](auto&, auto& t) { t.cancel(), t.cancel(); }, "-1", 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    log.clear();
    int aborts = 0;
    std::optional<Completion<int>> completion;
    const TaskHandle task = scope.spawn(awaitValue(log, completion, aborts));
    executor.runUntilIdle();
    c.events(*completion, task);
    EXPECT_TRUE(log.empty()) << "resumed inside the event";
    executor.runUntilIdle();
    completion->resolve(3);
    executor.runUntilIdle();
    EXPECT_EQ(log, Log{c.outcome});
    EXPECT_EQ(aborts, c.aborts);
  }
}

TEST_F(TaskTest, DestroyedWithItsOutcomeQueuedAnOperationIsNeitherResumedNorAborted) {
  int aborts = 0;
  std::optional<Completion<int>> completion;
  {
    TaskScope shortLived(executor);
    shortLived.spawn(awaitValue(log, completion, aborts));
    executor.runUntilIdle();
    completion->resolve(1);
  }
  executor.runUntilIdle();
  EXPECT_TRUE(log.empty());
  EXPECT_EQ(aborts, 0);
}

Task<int> valueAfter(int value, ExecutorClock::duration duration) {
  const SleepEnd end = co_await sleepFor(duration);
  co_return end == SleepEnd::elapsed ? value : -value;
}

Task<void> sumOfChildren(Log& log) {
  const TaskContext context = co_await currentContext();
  ChildTask slow(context, valueAfter(1, 10s));
  ChildTask fast(context, valueAfter(2, 5s));
  const int first = co_await slow.result();
  const int second = co_await fast.result();
  log.push_back(std::to_string(first) + " and " + std::to_string(second));
}

TEST_F(TaskTest, ChildrenRunSideBySideAndAreCancelledOrDestroyedWithTheirParent) {
  scope.spawn(sumOfChildren(log));
  executor.advance(10s);
  const TaskHandle parent = scope.spawn(sumOfChildren(log));
  executor.runUntilIdle();
  parent.cancel();
  executor.runUntilIdle();
  EXPECT_EQ(log, (Log{"1 and 2", "-1 and -2"}));
  {
    TaskScope shortLived(executor);
    shortLived.spawn(sumOfChildren(log));
    executor.runUntilIdle();
    EXPECT_EQ(executor.pendingTimers(), 2U);
  }
  EXPECT_EQ(executor.pendingTimers(), 0U);
}

Task<void> abandonChildren(Log& log) {
  const TaskContext context = co_await currentContext();
  ChildTask first(context, valueAfter(1, 10s));
  ChildTask second(context, valueAfter(2, 5s));
  co_await cancelAndAwaitEnd(first, second);
  log.push_back("ended");
}

TEST_F(TaskTest, ParentCanWaitForTheEndOfChildrenItCancelled) {
  scope.spawn(abandonChildren(log));
  executor.runUntilIdle();
  EXPECT_EQ(log, Log{"ended"});
  EXPECT_EQ(executor.pendingTimers(), 0U);
}

Task<void> visit(AsyncMutex& mutex, Log& log, std::string name) {
  const auto lock = co_await mutex.lock();
  if (!lock) {
    log.push_back(name + " gave up");
    co_return;
  }
  log.push_back(name + " enters");
  const SleepEnd end = co_await sleepFor(1s);
  log.push_back(name + (end == SleepEnd::elapsed ? " leaves" : " is called out"));
}

TEST_F(TaskTest, MutexLetsTasksThroughInOrderAndSkipsTheCancelled) {
  AsyncMutex mutex;
  TaskScope visitors(executor);
  visitors.spawn(visit(mutex, log, "a"));
  const TaskHandle b = visitors.spawn(visit(mutex, log, "b"));
  visitors.spawn(visit(mutex, log, "c"));
  executor.runUntilIdle();
  b.cancel();
  executor.advance(2s);
  EXPECT_EQ(log, (Log{"a enters", "b gave up", "a leaves", "c enters", "c leaves"}));
}

TEST_F(TaskTest, ATurnGivenToADestroyedTaskPassesOn) {
  AsyncMutex mutex;
  TaskScope visitors(executor);
  auto doomed = std::make_unique<TaskScope>(executor);
  const TaskHandle first = visitors.spawn(visit(mutex, log, "a"));
  executor.runUntilIdle();
  doomed->spawn(visit(mutex, log, "b"));
  executor.runUntilIdle();
  visitors.spawn(visit(mutex, log, "c"));
  executor.runUntilIdle();
  executor.schedule(executor.now() + 1s, [&] { executor.post([&] { doomed.reset(); }); });
  executor.advance(5s);
  EXPECT_EQ(log.back(), "c leaves");
}

Task<void> tryToStartSomething(AsyncMutex& mutex, Log& log) {
  CompletionAwaiter<bool>::Start start = [&log](const Completion<bool>&) {
    log.emplace_back("started");
    return [] {};
  };
  co_await untilResolved<bool>(std::move(start), false);
  const SleepEnd sleep = co_await sleepFor(0s);
  if (sleep == SleepEnd::elapsed) { log.emplace_back("slept"); }
  const std::optional<AsyncMutex::Lock> turn = co_await mutex.lock();
  if (turn) { log.emplace_back("locked"); }
  log.emplace_back("ended");
}

// A request that is begun only to be aborted has been seen by its server.
TEST_F(TaskTest, ACancelledTaskStartsNothingMore) {
  AsyncMutex mutex;
  scope.spawn(tryToStartSomething(mutex, log)).cancel();
  executor.runUntilIdle();
  EXPECT_EQ(log, Log{"ended"});
}

Task<int> immediate() { co_return 1; }

Task<void> countMany(int& sum) {
  for (int i = 0; i < 200'000; ++i) {
    sum += co_await immediate();
  }
}

TEST_F(TaskTest, ManyAwaitsThatCompleteAtOnceDoNotGrowTheStack) {
  int sum = 0;
  scope.spawn(countMany(sum));
  executor.runUntilIdle();
  EXPECT_EQ(sum, 200'000);
}

}  // namespace
}  // namespace orvane::test
