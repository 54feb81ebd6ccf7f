#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "pool/account_client_fixture.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using Kind = PoolError::Kind;
using ::testing::ElementsAre;

using AccountClientTest = AccountClientFixture;

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

TEST_F(AccountClientTest, TypesEveryFailure) {
  const std::vector<std::pair<HttpResult, PoolError>> cases{
      {answer(199, profileBody), {Kind::badServerResponse}},
      {answer(200, "<html>"), {Kind::decoding}},
      {answer(204), {Kind::decoding}},
      {answer(300, profileBody), {Kind::badServerResponse}},
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
  const TaskHandle call = begin(client.fetchHistory(), outcome);
  executor.advance(30s);
  call.cancel();
  executor.runUntilIdle();
  ASSERT_TRUE(outcome.value());
  EXPECT_EQ(outcome->value().size(), 1U);
  EXPECT_THAT(sendTimes(), ElementsAre(0));
}

}  // namespace
}  // namespace orvane::test
