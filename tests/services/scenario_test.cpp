#include <set>

#include <gmock/gmock.h>

#include "services/services_client.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using services::Chain;

const std::string sample = "bc1qsample";

Chain quietChain() {
  return Chain({.address = sample, .paymentAfter = std::nullopt, .rewardAfter = std::nullopt});
}

TEST(ChainTest, HistoryHasRewardsAtEveryDepthThatMatters) {
  std::set<std::int64_t> depths;
  const Chain chain = quietChain();
  for (const services::ChainTransaction& each : chain.transactionsOf(sample)) {
    if (!each.inputs.front().isCoinbase) { continue; }
    depths.insert(each.blockHeight ? chain.tipHeight() - *each.blockHeight + 1 : 0);
  }
  EXPECT_THAT(depths, ::testing::IsSupersetOf({0, 1, 99, 100}));
}

TEST(ChainTest, GrowsWithTheTimeAndNotWithHowOftenItIsLookedAt) {
  Chain once = quietChain();
  once.advanceTo(7196s);
  Chain often = quietChain();
  for (auto time = 0s; time <= 7196s; time += 7s) {
    often.advanceTo(time);
  }
  EXPECT_EQ(once.tipHeight(), services::openingTipHeight + 29);
  EXPECT_EQ(often.tipHeight(), once.tipHeight());
}

TEST(ChainTest, PlannedPaymentAndRewardComeOnceAtTheirTime) {
  Chain chain({.address = sample, .paymentAfter = 20s, .rewardAfter = 40s});
  const auto before = chain.transactionsOf(sample).size();
  for (const auto& [time, added] : {std::pair(19s, 0U), std::pair(20s, 1U), std::pair(100s, 2U)}) {
    chain.advanceTo(time);
    EXPECT_EQ(chain.transactionsOf(sample).size(), before + added);
  }
}

using DocumentsTest = ServicesTest;

TEST_F(DocumentsTest, WorkersShowEveryStateAndUnit) {
  std::set<std::string> words;
  const json document = at(Service::pool, workersTarget);
  for (const json& worker : document["btc"]["workers"]) {
    words.insert(worker.value("state", "none"));
    words.insert(worker.value("hash_rate_unit", "none"));
  }
  EXPECT_EQ(words, (std::set<std::string>{"ok", "low", "off", "dis", "unknown", "none", "Mh/s",
                                          "Gh/s", "Th/s", "Ph/s"}));
}

TEST_F(DocumentsTest, OneWorkerGoesLowThenOffThenComesBack) {
  // As a client sees it that asks for the workers a minute after each five-minute refresh.
  services_.advance(60s);
  for (const char* const state : {"ok", "low", "off", "ok"}) {
    const json workers = at(Service::pool, workersTarget)["btc"]["workers"];
    EXPECT_EQ(workers["larkspur.attic-s9"]["state"], state);
    services_.advance(5min);
  }
}

TEST_F(DocumentsTest, PricesOfBothSourcesAreTheSame) {
  const json prices = at(Service::price, priceTarget)["bitcoin"];
  const json rates = at(Service::fallback, "/v2/exchange-rates?currency=BTC")["data"]["rates"];
  EXPECT_NEAR(prices["usd"].get<double>(), 97'000, 3'000);
  EXPECT_NEAR(std::stod(rates["EUR"].get<std::string>()), prices["eur"].get<double>(), 50);
}

TEST_F(DocumentsTest, RewardsAreThoseOfTheDaysAskedFor) {
  const json year = at(Service::pool, "/accounts/rewards/json/btc?from=2000-01-01&to=2026-11-16");
  EXPECT_GT(year["btc"]["daily_rewards"].size(), 300U);
  EXPECT_EQ(year["btc"]["daily_rewards"].back()["date"], 1'794'700'800);  // 2026-11-15
  const json week = at(Service::pool, "/accounts/rewards/json/btc?from=2026-11-08&to=2026-11-14");
  EXPECT_LE(week["btc"]["daily_rewards"].size(), 7U);
  EXPECT_EQ(week["btc"]["daily_rewards"].back()["date"], 1'794'614'400);
}

TEST_F(DocumentsTest, WhatIsNotAskedForToTheCharacterIsRefused) {
  EXPECT_EQ(get(Service::pool, profileTarget, "wrong")->status, 401);
  for (const auto& [service, target, status] :
       {std::tuple(Service::pool, "/accounts/profile/json/btc", 404),
        std::tuple(Service::pool, "/accounts/rewards/json/btc", 400),
        std::tuple(Service::pool, "/accounts/rewards/json/btc?from=2000-01-01&to=2026-02-30", 400),
        std::tuple(Service::pool, "/accounts/rewards/json/btc?to=2026-11-16&from=2000-01-01", 400),
        std::tuple(Service::explorer, "/blocks/tip/height", 404),
        std::tuple(Service::explorer, "/api/address/short", 400),
        std::tuple(Service::price, "/api/v3/simple/price?ids=bitcoin&vs_currencies=eur%2Cusd", 404),
        std::tuple(Service::fallback, "/v2/exchange-rates", 404)}) {
    EXPECT_EQ(get(service, target)->status, status) << target;
  }
}

TEST_F(DocumentsTest, ExplorerTotalsAreThoseOfItsTransactions) {
  const json totals = at(Service::explorer, sampleTarget);
  EXPECT_EQ(totals["chain_stats"]["funded_txo_sum"], 787'640);
  EXPECT_EQ(totals["chain_stats"]["spent_txo_sum"], 150'000 + 98'700);
  EXPECT_EQ(totals["mempool_stats"]["funded_txo_sum"], 12'345 + 31'250);
  EXPECT_EQ(totals["mempool_stats"]["tx_count"], 2);
}

}  // namespace
}  // namespace orvane::test
