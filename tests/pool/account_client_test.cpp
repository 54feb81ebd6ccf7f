#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "platform/async/task_scope.h"
#include "pool/braiins_account_client.h"
#include "support/run_task.h"
#include "support/scripted_transport.h"
#include "support/virtual_executor.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using Kind = PoolError::Kind;
using Stats = std::expected<BraiinsAccountStats, PoolError>;
using Workers = std::expected<std::vector<BraiinsWorkerStatus>, PoolError>;
using History = std::expected<std::vector<BraiinsHistoryDay>, PoolError>;
using ::testing::ElementsAre;

const std::string profileBody =
    R"({"btc":{"hash_rate_unit":"Gh/s","hash_rate_60m":5,"shares_24h":1536,)"
    R"("today_reward":"0.00000001","current_balance":"0.00012345"}})";
const std::string workersBody = R"({"btc":{"workers":{"b":{},"a":{}}}})";
const std::string rewardsBody =
    R"({"btc":{"daily_rewards":[{"date":1794700800,"total_reward":"0.0001"}]}})";
const std::string hashrateBody =
    R"({"btc":[{"date":1794700800,"hash_rate_unit":"Gh/s","hash_rate_24h":5,)"
    R"("total_shares":2048}]})";

/// What a spawned call has come to; nothing while it is under way.
template <class Result>
Task<void> into(Task<Result> task, std::optional<Result>& outcome) {
  Result result = co_await std::move(task);
  outcome.emplace(std::move(result));
}

/// An executor that lets a test in between a callback's posting and its running.
class InterruptedExecutor final : public Executor {
 public:
  explicit InterruptedExecutor(VirtualExecutor& executor) : executor_(executor) {}

  std::function<void()> afterPost = [] {};

  [[nodiscard]] Instant now() const override { return executor_.now(); }
  [[nodiscard]] WallTime wallClock() const override { return executor_.wallClock(); }
  void post(Callback callback) override {
    executor_.post(std::move(callback));
    afterPost();
  }
  TimerId schedule(Instant when, Callback callback) override {
    return executor_.schedule(when, std::move(callback));
  }
  void cancel(TimerId timer) override { executor_.cancel(timer); }

 private:
  VirtualExecutor& executor_;
};

HttpResult answer(int status, std::string body = {}) {
  return HttpResponse{.status = status, .body = std::move(body)};
}

class AccountClientTest : public ::testing::Test {
 protected:
  AccountClientTest() {
    client.token = "secret";
    transport.on("/profile/").respond(200, profileBody);
    transport.on("/workers/").respond(200, workersBody);
    transport.on("/rewards/").respond(200, rewardsBody);
    transport.on("/hash_rate_daily/").respond(200, hashrateBody);
  }

  Stats fetchStats() { return runTask(executor, client.fetchStats()); }
  Workers fetchWorkers() { return runTask(executor, client.fetchWorkers()); }
  History fetchHistory() { return runTask(executor, client.fetchHistory()); }

  /// The seconds between the test's start and each request.
  std::vector<std::int64_t> sendTimes() const {
    std::vector<std::int64_t> times;
    for (const ScriptedTransport::Sent& sent : transport.sent()) {
      times.push_back(std::chrono::duration_cast<std::chrono::seconds>(sent.at - start).count());
    }
    return times;
  }

  VirtualExecutor executor;
  Instant start = executor.now();
  ScriptedTransport transport{executor};
  BraiinsAccountClient client{executor, transport, "pool.test:8443"};
  TaskScope scope{executor};
};

TEST_F(AccountClientTest, SendsTheTokenAndNothingElse) {
  client.token = " \u00FCse r+/=";
  EXPECT_TRUE(fetchStats());
  EXPECT_TRUE(fetchWorkers());
  EXPECT_TRUE(fetchHistory());
  std::vector<std::string> urls;
  for (const ScriptedTransport::Sent& sent : transport.sent()) {
    urls.push_back(sent.request.url);
    ASSERT_EQ(sent.request.headers.size(), 1U);
    EXPECT_EQ(sent.request.headers[0].name, "Pool-Auth-Token");
    EXPECT_EQ(sent.request.headers[0].value, client.token);
    EXPECT_EQ(sent.request.idleTimeout, 15s);
  }
  const std::string base = "https://pool.test:8443/accounts/";
  EXPECT_THAT(urls, ElementsAre(base + "profile/json/btc/", base + "workers/json/btc/",
                                base + "rewards/json/btc?from=2000-01-01&to=2026-11-16",
                                base + "hash_rate_daily/json/group/btc"));
}

TEST_F(AccountClientTest, MapsWhatThePoolAnswers) {
  EXPECT_EQ(fetchStats(),
            (BraiinsAccountStats{
                .hashRate60m = 5e9, .shares24h = 2, .todayRewardSats = 1, .balanceSats = 12'345}));
  const Workers workers = fetchWorkers();
  ASSERT_TRUE(workers);
  EXPECT_THAT(*workers, ElementsAre(BraiinsWorkerStatus{.fullName = "a"},
                                    BraiinsWorkerStatus{.fullName = "b"}));
  const History history = fetchHistory();
  ASSERT_TRUE(history);
  const BraiinsHistoryDay day{.date = std::chrono::sys_seconds(1'794'700'800s),
                              .averageHashRate = 5e9,
                              .shares = 2,
                              .rewardBTC = "0.0001"};
  EXPECT_THAT(*history, ElementsAre(day));
}

TEST_F(AccountClientTest, AsksForRewardsUpToTheDayInUtc) {
  const auto lastMoment = std::chrono::sys_days{std::chrono::year{2027} / 1 / 1} - 1ms;
  executor.setWallClock(lastMoment);
  EXPECT_TRUE(fetchHistory());
  EXPECT_EQ(transport.sentTo("to=2026-12-31"), 1U);
}

TEST_F(AccountClientTest, EarlyCallsWaitForTheirSlot) {
  EXPECT_TRUE(fetchStats());
  executor.advance(1s);
  EXPECT_TRUE(fetchWorkers());
  executor.advance(61s);
  EXPECT_TRUE(fetchStats());
  EXPECT_TRUE(fetchHistory());
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60, 121, 181, 241));
}

TEST_F(AccountClientTest, TheGapCountsFromTheSendingNotFromTheAnswer) {
  transport.on("/profile/").respond(200, profileBody).after(10s);
  EXPECT_TRUE(fetchStats());
  EXPECT_TRUE(fetchWorkers());
  transport.on("/profile/").respond(200, profileBody).after(90s);
  EXPECT_TRUE(fetchStats());
  EXPECT_TRUE(fetchWorkers());
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60, 120, 210));
}

TEST_F(AccountClientTest, OverlappingCallsQueueInTheOrderTheyCame) {
  std::optional<History> history;
  std::optional<Stats> stats;
  std::optional<Workers> workers;
  scope.spawn(into(client.fetchHistory(), history));
  scope.spawn(into(client.fetchStats(), stats));
  scope.spawn(into(client.fetchWorkers(), workers));
  executor.advance(59s);
  EXPECT_EQ(transport.sent().size(), 1U);
  executor.advance(121s);
  EXPECT_TRUE(history && stats && workers);
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60, 120, 180));
  EXPECT_TRUE(transport.sent()[1].request.url.contains("/profile/"));
  EXPECT_TRUE(transport.sent()[2].request.url.contains("/workers/"));
  EXPECT_TRUE(transport.sent()[3].request.url.contains("/hash_rate_daily/"));
}

TEST_F(AccountClientTest, ACancelledCallLeavesItsSlotToTheNext) {
  EXPECT_TRUE(fetchStats());
  std::optional<Stats> sleeping;
  std::optional<Stats> queued;
  std::optional<Workers> last;
  const TaskHandle first = scope.spawn(into(client.fetchStats(), sleeping));
  const TaskHandle second = scope.spawn(into(client.fetchStats(), queued));
  scope.spawn(into(client.fetchWorkers(), last));
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

TEST_F(AccountClientTest, ACallCancelledWhenItsTurnHasJustComeSendsNothing) {
  EXPECT_TRUE(fetchStats());
  std::optional<Workers> first;
  std::optional<Stats> second;
  TaskHandle waiting;
  transport.on("/workers/").respondBy([&](const HttpRequest&) {
    waiting.cancel();
    return answer(200, workersBody);
  });
  scope.spawn(into(client.fetchWorkers(), first));
  waiting = scope.spawn(into(client.fetchStats(), second));
  executor.advance(60s);
  EXPECT_TRUE(first.value());
  EXPECT_EQ(second.value().error(), PoolError{Kind::cancelled});
  EXPECT_TRUE(fetchStats());
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60, 120));
}

TEST_F(AccountClientTest, ACallCancelledWhenItsWaitHasJustEndedSendsNothing) {
  EXPECT_TRUE(fetchStats());
  InterruptedExecutor interrupted(executor);
  TaskScope interruptedScope(interrupted);
  std::optional<Stats> outcome;
  const TaskHandle call = interruptedScope.spawn(into(client.fetchStats(), outcome));
  executor.advance(59s);
  interrupted.afterPost = [&] { call.cancel(); };
  executor.advance(1s);
  EXPECT_EQ(outcome.value().error(), PoolError{Kind::cancelled});
  EXPECT_TRUE(fetchWorkers());
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60));
}

TEST_F(AccountClientTest, ACancelledRequestIsAbortedAndStillHoldsBackTheNext) {
  transport.on("/profile/").neverAnswer();
  std::optional<Stats> outcome;
  const TaskHandle call = scope.spawn(into(client.fetchStats(), outcome));
  executor.advance(5s);
  call.cancel();
  executor.runUntilIdle();
  EXPECT_EQ(outcome.value().error(), PoolError{Kind::cancelled});
  EXPECT_EQ(transport.aborted(), 1U);
  EXPECT_TRUE(fetchWorkers());
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60));
}

TEST_F(AccountClientTest, AFailedRequestStillHoldsBackTheNext) {
  transport.on("/profile/").stall().times(1).respond(500).times(1);
  EXPECT_EQ(fetchStats().error(), (PoolError{Kind::transport, HttpFailure::timedOut}));
  EXPECT_EQ(executor.now() - start, 15s);
  EXPECT_EQ(fetchStats().error(), PoolError{Kind::badServerResponse});
  EXPECT_TRUE(fetchStats());
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60, 120));
}

TEST_F(AccountClientTest, ATokenThatNoHeaderCanCarryIsRefusedAtOnce) {
  using namespace std::string_literals;
  EXPECT_TRUE(fetchStats());
  for (const std::string& token : {""s, "a\nX-Evil: 1"s, "a\r\nX-Evil: 1"s, "a\rb"s, "a\0b"s}) {
    client.token = token;
    EXPECT_EQ(fetchStats().error(), PoolError{Kind::userAuthenticationRequired});
    EXPECT_EQ(fetchHistory().error(), PoolError{Kind::userAuthenticationRequired});
  }
  EXPECT_EQ(executor.now(), start);
  client.token = "secret";
  EXPECT_TRUE(fetchStats());
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60));
}

TEST_F(AccountClientTest, ATokenTakenAwayDuringTheWaitIsNotSent) {
  std::optional<Stats> outcome;
  EXPECT_TRUE(fetchStats());
  scope.spawn(into(client.fetchStats(), outcome));
  executor.advance(30s);
  client.token = "";
  executor.advance(30s);
  EXPECT_EQ(outcome.value().error(), PoolError{Kind::userAuthenticationRequired});
  client.token = "another";
  EXPECT_TRUE(fetchStats());
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60));
  EXPECT_EQ(transport.sent()[1].request.headers[0].value, "another");
}

TEST_F(AccountClientTest, TypesEveryFailure) {
  const std::vector<std::pair<HttpResult, PoolError>> cases{
      {answer(199, profileBody), {Kind::badServerResponse}},
      {answer(200, "<html>"), {Kind::decoding}},
      {answer(204), {Kind::decoding}},
      {answer(302), {Kind::badServerResponse}},
      {answer(401), {Kind::userAuthenticationRequired}},
      {answer(403), {Kind::userAuthenticationRequired}},
      {answer(404), {Kind::badServerResponse}},
      {answer(429), {Kind::badServerResponse}},
      {answer(500, profileBody), {Kind::badServerResponse}},
      {std::unexpected(HttpFailure::invalidUrl), {Kind::badURL}},
      {std::unexpected(HttpFailure::cancelled), {Kind::cancelled}},
      {std::unexpected(HttpFailure::cannotFindHost),
       {Kind::transport, HttpFailure::cannotFindHost}},
      {std::unexpected(HttpFailure::other), {Kind::transport, HttpFailure::other}},
  };
  for (const auto& [result, error] : cases) {
    const auto answered = [result](const HttpRequest&) { return result; };
    transport.on("/profile/").respondBy(answered).times(1);
    transport.on("/workers/").respondBy(answered).times(1);
    EXPECT_EQ(fetchStats(), std::unexpected(error));
    EXPECT_EQ(fetchWorkers(), std::unexpected(error));
  }
  transport.on("/profile/").respond(299, profileBody);
  EXPECT_TRUE(fetchStats());
}

TEST_F(AccountClientTest, AHistoryWithoutHashratesCarriesRewards) {
  const BraiinsHistoryDay day{.date = std::chrono::sys_seconds(1'794'700'800s),
                              .rewardBTC = "0.0001"};
  transport.on("/hash_rate_daily/")
      .respond(401)
      .times(1)
      .respond(200, "{")
      .times(1)
      .fail(HttpFailure::timedOut);
  for (int load = 0; load < 3; ++load) {
    const History history = fetchHistory();
    ASSERT_TRUE(history);
    EXPECT_THAT(*history, ElementsAre(day));
  }
}

TEST_F(AccountClientTest, AHistoryWithoutRewardsFailsWithoutASecondRequest) {
  transport.on("/rewards/").respond(500).times(1).respond(200, "{}");
  EXPECT_EQ(fetchHistory().error(), PoolError{Kind::badServerResponse});
  EXPECT_EQ(transport.sentTo("/hash_rate_daily/"), 0U);
  EXPECT_EQ(fetchHistory().error(), PoolError{Kind::decoding});
}

TEST_F(AccountClientTest, AHistoryCancelledBeforeItsHashratesIsBuiltFromRewards) {
  std::optional<History> outcome;
  const TaskHandle call = scope.spawn(into(client.fetchHistory(), outcome));
  executor.advance(30s);
  call.cancel();
  executor.runUntilIdle();
  ASSERT_TRUE(outcome.value());
  EXPECT_EQ(outcome->value().size(), 1U);
  EXPECT_THAT(sendTimes(), ElementsAre(0));
}

TEST_F(AccountClientTest, ADestroyedCallReleasesItsPlace) {
  EXPECT_TRUE(fetchStats());
  std::optional<Stats> outcome;
  {
    TaskScope inner(executor);
    inner.spawn(into(client.fetchStats(), outcome));
    inner.spawn(into(client.fetchStats(), outcome));
    executor.advance(30s);
  }
  EXPECT_EQ(executor.pendingTimers(), 0U);
  EXPECT_TRUE(fetchWorkers());
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60));
}

}  // namespace
}  // namespace orvane::test
