#include <QAbstractEventDispatcher>
#include "platform/eventloop/real_time.h"

namespace orvane::test { namespace {

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
  EXPECT_GE(executor->now().time_since_epoch(),
            std::chrono::seconds(before.tv_sec) + std::chrono::nanoseconds(before.tv_nsec));
}

TEST_F(QtExecutorTest, PostsRunInTheirOrderAndNeverInsideTheCall) {
  executor->post([this] {
    executor->post(note("c"));
    log.push_back("a");
  });
  executor->post(note("b"));
  EXPECT_TRUE(log.empty());
  letPass(1ms);
  EXPECT_EQ(log, (Log{"a", "b", "c"}));
}

TEST_F(QtExecutorTest, TimersRunInTheOrderOfTheirMomentsEachAfterWhatTheOneBeforeSetInMotion) {
  const Instant now = executor->now();
  Instant ran{};
  executor->schedule(now + 2ms, note("second"));
  executor->schedule(now + 2ms, [&] { ran = executor->now(); });
  executor->schedule(now + 1ms, [this] {
    executor->post([this] { executor->post(note("post of the first's post")); });
  });
  executor->schedule(now - 1h, note("past"));
  while (executor->now() < now + 3ms) {  // all are due when the loop looks next
  }
  letPass(1ms);
  EXPECT_EQ(log, (Log{"past", "post of the first's post", "second"}));
  EXPECT_GE(ran, now + 2ms);
}

TEST_F(QtExecutorTest, CancelledTimersDoNotRunAndLeaveTheNextOneItsMoment) {
  const Instant now = executor->now();
  Executor::TimerId dueTogether = 0;
  executor->cancel(executor->schedule(now, note("cancelled before")));
  executor->schedule(now, [&] { executor->cancel(dueTogether); });
  dueTogether = executor->schedule(now, note("cancelled by the timer before it"));
  executor->schedule(now + 1ms, note("next"));
  letPass(5ms);
  EXPECT_EQ(log, Log{"next"});
}

TEST_F(QtExecutorTest, NestedEventLoopRunsWhatIsLeft) {
  const auto runALoop = [this] {
    letPass(2ms);
    log.emplace_back("loop ends");
  };
  executor->post(runALoop);
  executor->post(note("post"));
  letPass(5ms);
  executor->schedule(Instant{}, runALoop);
  executor->schedule(Instant{}, note("timer"));
  letPass(5ms);
  EXPECT_EQ(log, (Log{"post", "loop ends", "timer", "loop ends"}));
}

TEST_F(QtExecutorTest, DestructionDropsWhatIsPendingAndLetsItCallBack) {
  QtExecutor& ending = *executor;
  Executor::TimerId timer = 0;
  bool isDropped = false;
  std::shared_ptr<void> guard(nullptr, [&](void*) {
    isDropped = true;
    ending.cancel(timer);
    ending.post([] { FAIL() << "ran after the executor's end"; });
  });
  ending.post([guard] { FAIL() << "ran after the executor's end"; });
  timer = ending.schedule(Instant{}, [guard] { FAIL(); });
  guard.reset();
  executor.reset();
  EXPECT_TRUE(isDropped);
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

}}  // namespace orvane::test
