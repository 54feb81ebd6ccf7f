#include <optional>

#include <gmock/gmock.h>

#include "pool/account_client_fixture.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using Kind = PoolError::Kind;
using ::testing::ElementsAre;

using AccountClientPacingTest = AccountClientFixture;

TEST_F(AccountClientPacingTest, EarlyCallsWaitForTheirSlotFromTheLastSendingOn) {
  transport.on("/profile/").respond(200, profileBody).after(10s);
  EXPECT_TRUE(fetchStats());
  executor.advance(1s);
  EXPECT_TRUE(fetchWorkers());
  executor.advance(61s);
  transport.on("/profile/").respond(200, profileBody).after(90s);
  EXPECT_TRUE(fetchStats());
  EXPECT_TRUE(fetchHistory());
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60, 121, 211, 271));
}

TEST_F(AccountClientPacingTest, OverlappingCallsQueueInTheOrderTheyCame) {
  std::optional<History> history;
  std::optional<Stats> stats;
  std::optional<Workers> workers;
  begin(client.fetchHistory(), history);
  begin(client.fetchStats(), stats);
  begin(client.fetchWorkers(), workers);
  executor.advance(59s);
  EXPECT_EQ(transport.sent().size(), 1U);
  executor.advance(121s);
  EXPECT_TRUE(history && stats && workers);
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60, 120, 180));
  EXPECT_TRUE(transport.sent()[1].request.url.contains("/profile/"));
  EXPECT_TRUE(transport.sent()[3].request.url.contains("/hash_rate_daily/"));
}

TEST_F(AccountClientPacingTest, ACancelledCallLeavesItsSlotToTheNext) {
  EXPECT_TRUE(fetchStats());
  std::optional<Stats> sleeping;
  std::optional<Stats> queued;
  std::optional<Workers> last;
  const TaskHandle first = begin(client.fetchStats(), sleeping);
  const TaskHandle second = begin(client.fetchStats(), queued);
  begin(client.fetchWorkers(), last);
  executor.advance(20s);
  second.cancel();
  executor.advance(20s);
  EXPECT_EQ(queued.value().error(), PoolError{Kind::cancelled});
  first.cancel();
  executor.advance(19s);
  EXPECT_EQ(sleeping.value().error(), PoolError{Kind::cancelled});
  EXPECT_FALSE(last);
  executor.advance(1s);
  EXPECT_TRUE(last.value());
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60));
}

TEST_F(AccountClientPacingTest, ACallCancelledWhenItsTurnHasJustComeSendsNothing) {
  EXPECT_TRUE(fetchStats());
  std::optional<Workers> first;
  std::optional<Stats> second;
  TaskHandle waiting;
  transport.on("/workers/").respondBy([&](const HttpRequest&) {
    waiting.cancel();
    return answer(200, workersBody);
  });
  begin(client.fetchWorkers(), first);
  waiting = begin(client.fetchStats(), second);
  executor.advance(60s);
  EXPECT_TRUE(first.value());
  EXPECT_EQ(second.value().error(), PoolError{Kind::cancelled});
  EXPECT_TRUE(fetchStats());
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60, 120));
}

TEST_F(AccountClientPacingTest, ACancelledRequestIsAbortedAndStillHoldsBackTheNext) {
  transport.on("/profile/").neverAnswer();
  std::optional<Stats> outcome;
  const TaskHandle call = begin(client.fetchStats(), outcome);
  executor.advance(5s);
  call.cancel();
  executor.runUntilIdle();
  EXPECT_EQ(outcome.value().error(), PoolError{Kind::cancelled});
  EXPECT_EQ(transport.aborted(), 1U);
  EXPECT_TRUE(fetchWorkers());
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60));
}

TEST_F(AccountClientPacingTest, AFailedRequestStillHoldsBackTheNext) {
  transport.on("/profile/").stall().times(1).respond(500).times(1);
  EXPECT_EQ(fetchStats().error(), (PoolError{Kind::transport, HttpFailure::timedOut}));
  EXPECT_EQ(executor.now() - start, 15s);
  EXPECT_EQ(fetchStats().error(), PoolError{Kind::badServerResponse});
  EXPECT_TRUE(fetchStats());
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60, 120));
}

TEST_F(AccountClientPacingTest, ATokenTakenAwayDuringTheWaitIsNotSent) {
  std::optional<Stats> outcome;
  EXPECT_TRUE(fetchStats());
  begin(client.fetchStats(), outcome);
  executor.advance(30s);
  client.token = "";
  executor.advance(30s);
  EXPECT_EQ(outcome.value().error(), PoolError{Kind::userAuthenticationRequired});
  client.token = "another";
  EXPECT_TRUE(fetchStats());
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60));
  EXPECT_EQ(transport.sent()[1].request.headers[0].value, "another");
}

TEST_F(AccountClientPacingTest, ADestroyedCallReleasesItsPlace) {
  EXPECT_TRUE(fetchStats());
  std::optional<Stats> outcome;
  {
    TaskScope inner(executor);
    inner.spawn(detail::storeResult(client.fetchStats(), outcome));
    inner.spawn(detail::storeResult(client.fetchStats(), outcome));
    executor.advance(30s);
  }
  EXPECT_EQ(executor.pendingTimers(), 0U);
  EXPECT_TRUE(fetchWorkers());
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60));
}

}  // namespace
}  // namespace orvane::test
