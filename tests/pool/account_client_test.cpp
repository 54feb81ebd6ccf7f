#include <gmock/gmock.h>
#include "pool/braiins_account_client.h"
#include "support/run_task.h"
#include "support/scripted_transport.h"

namespace orvane::test { namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using Kind = PoolError::Kind;
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
const BraiinsHistoryDay rewardOnly{.date = std::chrono::sys_seconds(1'794'700'800s),
                                   .rewardBTC = "0.0001"};

/// A client whose pool answers everything well until a test says otherwise.
class AccountClientTest : public ::testing::Test {
 protected:
  AccountClientTest() {
    client.token = "secret";
    transport.on("/profile/").respond(200, profileBody);
    transport.on("/workers/").respond(200, workersBody);
    transport.on("/rewards/").respond(200, rewardsBody);
    transport.on("/hash_rate_daily/").respond(200, hashrateBody);
  }

  auto fetchStats() { return runTask(executor, client.fetchStats()); }
  auto fetchWorkers() { return runTask(executor, client.fetchWorkers()); }
  auto fetchHistory() { return runTask(executor, client.fetchHistory()); }

  /// Starts a call; its outcome is nothing while it is under way.
  template <class Result>
  TaskHandle begin(Task<Result> call, std::optional<Result>& outcome) {
    return scope.spawn(detail::storeResult(std::move(call), outcome));
  }

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
  std::optional<PoolResult<BraiinsAccountStats>> stats;
  std::optional<PoolResult<std::vector<BraiinsWorkerStatus>>> workers;
  std::optional<PoolResult<std::vector<BraiinsHistoryDay>>> history;
};

TEST_F(AccountClientTest, EachCallSendsTheTokenAndNoMoreAndGivesItsDocument) {
  client.token = " \u00FCse r+/=";
  executor.setWallClock(std::chrono::sys_days{std::chrono::year{2027} / 1 / 6} - 130s);
  EXPECT_EQ(fetchStats(),
            (BraiinsAccountStats{
                .hashRate60m = 5e9, .shares24h = 2, .todayRewardSats = 1, .balanceSats = 12'345}));
  EXPECT_EQ(fetchWorkers()->size(), 2U);
  BraiinsHistoryDay day = rewardOnly;
  day.averageHashRate = 5e9;
  day.shares = 2;
  EXPECT_THAT(fetchHistory().value(), ElementsAre(day));
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
                                base + "rewards/json/btc?from=2000-01-01&to=2027-01-05",
                                base + "hash_rate_daily/json/group/btc"));
}

TEST_F(AccountClientTest, ATokenThatNoHeaderCanCarryIsRefusedAtOnce) {
  for (const std::string& token : {""s, "a\nX-Evil: 1"s, "a\rb"s, "a\0b"s}) {
    client.token = token;
    EXPECT_EQ(fetchStats().error(), PoolError{Kind::userAuthenticationRequired});
    EXPECT_EQ(fetchHistory().error(), PoolError{Kind::userAuthenticationRequired});
  }
  EXPECT_TRUE(transport.sent().empty());
}

TEST_F(AccountClientTest, NamesEveryFailure) {
  const HttpFailure noHost = HttpFailure::cannotFindHost;
  const std::pair<HttpResult, PoolError> cases[]{
      {HttpResponse{204, ""}, {Kind::decoding}},
      {HttpResponse{401, profileBody}, {Kind::userAuthenticationRequired}},
      {HttpResponse{403, ""}, {Kind::userAuthenticationRequired}},
      {HttpResponse{404, profileBody}, {Kind::badServerResponse}},
      {std::unexpected(HttpFailure::invalidUrl), {Kind::badURL}},
      {std::unexpected(noHost), {Kind::transport, noHost}}};
  for (const auto& [result, error] : cases) {
    transport.on("").respondBy([result](const HttpRequest&) { return result; });
    EXPECT_EQ(fetchStats(), std::unexpected(error));
    EXPECT_EQ(fetchWorkers(), std::unexpected(error));
    EXPECT_EQ(fetchHistory(), std::unexpected(error));
  }
}

TEST_F(AccountClientTest, AHistoryWithoutHashratesCarriesRewards) {
  transport.on("/hash_rate_daily/").respond(401).respond(200, "{");
  EXPECT_THAT(fetchHistory().value(), ElementsAre(rewardOnly));
  EXPECT_THAT(fetchHistory().value(), ElementsAre(rewardOnly));
}

TEST_F(AccountClientTest, ARedirectTakesATurnOfItsOwnAndTheSixthIsNotFollowed) {
  const auto movedTo = [](const std::string& url) {
    return [url](const HttpRequest&) {
      return HttpResponse{.status = 302, .body = "", .redirect = url};
    };
  };
  transport.on("/profile/").respondBy(movedTo("https://pool.test:8443/moved")).times(1);
  transport.on("/moved").respond(200, profileBody).times(1);
  EXPECT_EQ(fetchStats()->balanceSats, 12'345);
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60));
  EXPECT_EQ(transport.sent().back().request.headers.at(0).value, "secret");
  transport.on("").respondBy(movedTo("https://pool.test:8443/on"));
  EXPECT_EQ(fetchStats().error().kind, Kind::badServerResponse);
  EXPECT_EQ(transport.sent().size(), 8U);
}

TEST_F(AccountClientTest, EarlyCallsWaitForTheirSlotFromTheLastSendingOn) {
  transport.on("/profile/").respond(200, profileBody).after(10s);
  EXPECT_TRUE(fetchStats());
  EXPECT_TRUE(fetchWorkers());
  executor.advance(61s);
  transport.on("/profile/").respond(200, profileBody).after(90s);
  EXPECT_TRUE(fetchStats());
  EXPECT_TRUE(fetchHistory());
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60, 121, 211, 271));
}

TEST_F(AccountClientTest, CallsQueueInTheirOrderFiguresAndWorkersBeforeAHistoryThatCameEarlier) {
  EXPECT_TRUE(fetchStats());
  begin(client.fetchHistory(), history);
  executor.advance(59s);
  begin(client.fetchStats(), stats);
  begin(client.fetchWorkers(), workers);
  executor.advance(181s);
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60, 120, 180, 240));
  EXPECT_TRUE(transport.sent()[1].request.url.contains("/profile/"));
  EXPECT_TRUE(transport.sent()[2].request.url.contains("/workers/"));
}

TEST_F(AccountClientTest, ACallCancelledWhenItsTurnHasJustComeUsesNoSlot) {
  TaskHandle waiting;
  transport.on("/workers/").respondBy([&](const HttpRequest&) {
    waiting.cancel();
    return HttpResponse{.status = 200, .body = workersBody};
  });
  begin(client.fetchWorkers(), workers);
  waiting = begin(client.fetchStats(), stats);
  EXPECT_TRUE(fetchHistory());
  EXPECT_EQ(stats.value().error(), PoolError{Kind::cancelled});
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60, 120));
}

TEST_F(AccountClientTest, ACancelledCallLeavesItsSlotToTheNext) {
  EXPECT_TRUE(fetchStats());
  const TaskHandle sleeping = begin(client.fetchStats(), stats);
  const TaskHandle queued = begin(client.fetchHistory(), history);
  executor.advance(20s);
  queued.cancel();
  sleeping.cancel();
  EXPECT_TRUE(fetchWorkers());
  EXPECT_EQ(stats.value().error(), PoolError{Kind::cancelled});
  EXPECT_EQ(history.value().error(), PoolError{Kind::cancelled});
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60));
}

TEST_F(AccountClientTest, AFailedOrCancelledRequestStillHoldsBackTheNext) {
  transport.on("/profile/").stall().times(1).respond(500).times(1).neverAnswer();
  EXPECT_EQ(fetchStats().error(), (PoolError{Kind::transport, HttpFailure::timedOut}));
  EXPECT_EQ(executor.now() - start, 15s);
  EXPECT_EQ(fetchStats().error(), PoolError{Kind::badServerResponse});
  const TaskHandle call = begin(client.fetchStats(), stats);
  executor.advance(65s);
  call.cancel();
  EXPECT_TRUE(fetchWorkers());
  EXPECT_EQ(stats.value().error(), PoolError{Kind::cancelled});
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60, 120, 180));
}

TEST_F(AccountClientTest, ATokenTakenAwayDuringTheWaitIsNotSentAndUsesNoSlot) {
  EXPECT_TRUE(fetchStats());
  begin(client.fetchStats(), stats);
  executor.advance(30s);
  client.token = "";
  executor.advance(30s);
  EXPECT_EQ(stats.value().error(), PoolError{Kind::userAuthenticationRequired});
  client.token = "another";
  EXPECT_TRUE(fetchStats());
  EXPECT_THAT(sendTimes(), ElementsAre(0, 60));
}

}}  // namespace orvane::test
